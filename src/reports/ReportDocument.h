#pragma once

#include <QRgb>
#include <QString>
#include <memory>
#include <optional>

namespace obelmark {

/// The heading row that stands on top of every page, in the table grammar.
struct RepeatedHeading
{
    QString format;
    QString row;
    QRgb shade = 0xFFC8C8C8; ///< its background
};

/// What stands around a report's rows.
struct ReportPageSetup
{
    QString header; ///< left, centre and right part separated by "|"; "%d" is the page number
    QString footer; ///< the same for the foot of the page; may be empty
    bool landscape = false;
    std::optional<RepeatedHeading> heading;
};

/// A paginated report.
class ReportDocument
{
public:
    ReportDocument();
    ~ReportDocument();
    ReportDocument(const ReportDocument &) = delete;
    ReportDocument &operator=(const ReportDocument &) = delete;

    /// Empties the document and begins a new one.
    void start(const ReportPageSetup &setup);
    /// Adds a table in the table grammar: column widths in twips, rows ended by ";", cells separated by "|".
    void addTable(QStringView format, QStringView body);
    void end();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace obelmark
