// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "custom_reports/ReportFile.h"

#include "common/OwnFiles.h"
#include "common/SharedState.h"
#include "custom_reports/ReportNumbers.h"
#include "runtime/NumberedError.h"
#include "runtime/Numbers.h"
#include "runtime/SafeFile.h"
#include "runtime/TextEncoding.h"
#include <QFile>
#include <QFileInfo>
#include <QStringTokenizer>
#include <variant>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// Report files are a few thousand bytes long.
constexpr qint64 mostBytes = 16 * 1024 * 1024;
constexpr int longestUseWith = 20;
constexpr int mostFields = 32767;

/// Lines 3 to 9.
struct ChoiceLine
{
    int ReportDefinition::*member;
    int least;
    int most;
    bool isSort = false; ///< a position of the sort lists, -1 for none, written between blanks
};
constexpr ChoiceLine choiceLines[] = {
    {&ReportDefinition::reportTo, 1, 3},
    {&ReportDefinition::orient, 0, 1},
    {&ReportDefinition::dateInHeader, 0, 1},
    {&ReportDefinition::pageNum, 0, 2},
    {&ReportDefinition::width, 0, 1},
    {&ReportDefinition::sort1, -1, mostFields, true},
    {&ReportDefinition::sort2, -1, mostFields, true},
};

/// Lines 12 to 22.
struct OptionLine
{
    std::variant<bool FieldOptions::*, QString FieldOptions::*, Date FieldOptions::*, float FieldOptions::*>
        member;
    bool isNumberText = false;
};
constexpr OptionLine optionLines[] = {
    {&FieldOptions::SelTrue},           {&FieldOptions::SelFalse},      {&FieldOptions::StartsWith},
    {&FieldOptions::StartValue},        {&FieldOptions::EndValue},      {&FieldOptions::LessThan, true},
    {&FieldOptions::GreaterThan, true}, {&FieldOptions::ColWidth},      {&FieldOptions::HideField},
    {&FieldOptions::ShowTotal},         {&FieldOptions::CurrencyField},
};
/// The last one is the catalogue's business.
constexpr size_t optionLinesRead = std::size(optionLines) - 1;

/// A text stands on one line.
QString oneLine(const QString &text)
{
    return withLf(text).replace(u'\n', u' ');
}

class EntryWriter
{
public:
    EntryWriter(const OptionLine &line, const FieldOptions &options, const RegionalSettings &regional)
        : m_line(line), m_options(options), m_regional(regional)
    {
    }

    QString operator()(bool FieldOptions::*member) const { return m_options.*member ? u"1"_s : u"0"_s; }
    QString operator()(QString FieldOptions::*member) const
    {
        const QString &text = m_options.*member;
        return oneLine(m_line.isNumberText ? numberTextToFile(text, m_regional) : text);
    }
    QString operator()(Date FieldOptions::*member) const
    {
        return plainNumber((m_options.*member).serial, fileSettings());
    }
    QString operator()(float FieldOptions::*member) const
    {
        return plainSingle(m_options.*member, fileSettings());
    }

private:
    const OptionLine &m_line;
    const FieldOptions &m_options;
    const RegionalSettings &m_regional;
};

/// Stores an entry; answers whether it is one.
class EntryReader
{
public:
    EntryReader(const OptionLine &line, QStringView entry, FieldOptions &options,
                const RegionalSettings &regional)
        : m_line(line), m_entry(entry), m_options(options), m_regional(regional)
    {
    }

    bool operator()(bool FieldOptions::*member) const
    {
        m_options.*member = m_entry == u'1';
        return m_entry == u'1' || m_entry == u'0';
    }
    bool operator()(QString FieldOptions::*member) const
    {
        const QString text = m_entry.toString();
        m_options.*member = m_line.isNumberText ? numberTextFromFile(text, m_regional) : text;
        return true;
    }
    bool operator()(Date FieldOptions::*member) const
    {
        const auto serial = numberFromFile(m_entry);
        const Date date{serial.value_or(0)};
        if (!serial || !date.date().isValid())
            return false;
        // The digits of a time end somewhere; it is meant to the second.
        m_options.*member = Date::from(date.date(), date.time());
        return true;
    }
    bool operator()(float FieldOptions::*member) const
    {
        const auto number = singleFromText(m_entry.toString().replace(u',', u'.'), fileSettings());
        if (number)
            m_options.*member = *number;
        return number.has_value();
    }

private:
    const OptionLine &m_line;
    QStringView m_entry;
    FieldOptions &m_options;
    const RegionalSettings &m_regional;
};

/// Raised by the reader at the first fault.
struct InvalidReport
{
};

void require(bool condition)
{
    if (!condition)
        throw InvalidReport();
}

class Reader
{
public:
    Reader(const QString &text, const RegionalSettings &regional) : m_text(text), m_regional(regional) {}

    /// The first line: the report that the file is for, as the designer begins with it.
    ReportDefinition newReport(const ReportDefinition &current, const Catalogue &catalogue)
    {
        const QString useWith = nextLine().toString();
        require(useWith == current.SpecUseWith ||
                (useWith.size() <= longestUseWith && catalogue.knows(useWith)));
        ReportDefinition report(catalogue, useWith);
        report.width = current.width;
        return report;
    }

    void readInto(ReportDefinition &report)
    {
        report.title = nextLine().toString();
        for (const ChoiceLine &line : choiceLines) {
            const auto number = wholeNumberFromFile(nextLine(), line.least, line.most);
            require(number && (!line.isSort || *number < report.rows.all().size()));
            report.*line.member = *number;
        }
        require(numberFromFile(nextLine()).has_value()); // how many fields: they tell it themselves
        readFields(report);
        for (size_t i = 0; i < optionLinesRead; ++i)
            readOptions(optionLines[i], report);
    }

private:
    QStringView nextLine()
    {
        require(m_at < m_text.size());
        qsizetype end = m_text.indexOf(u'\n', m_at);
        if (end < 0)
            end = m_text.size();
        const QStringView line = QStringView(m_text).sliced(m_at, end - m_at);
        m_at = end + 1;
        return line;
    }

    /// An empty line has no entries.
    template<class Each>
    void forEachEntry(QStringView line, int most, Each each)
    {
        if (line.isEmpty())
            return;
        int n = 0;
        for (const QStringView entry : qTokenize(line, u';')) {
            require(++n <= most);
            each(n, entry);
        }
    }

    void readFields(ReportDefinition &report)
    {
        forEachEntry(nextLine(), mostFields, [&](int, QStringView entry) {
            const auto number = numberFromFile(entry);
            require(number.has_value());
            // A field that is not in the catalogue, or already taken, is passed over.
            const bool isId = *number >= 1 && *number <= report.rows.MaxSpecID();
            const int specid = isId ? int(*number) : 0;
            if (double(specid) == *number && report.rows.find(specid) && !report.fields.contains(specid))
                report.fields << specid;
        });
    }

    void readOptions(const OptionLine &line, ReportDefinition &report)
    {
        forEachEntry(nextLine(), report.rows.MaxSpecID(), [&](int n, QStringView entry) {
            FieldOptions options = report.options[size_t(n)];
            require(std::visit(EntryReader(line, entry, options, m_regional), line.member));
            report.options[size_t(n)] = options;
        });
    }

    const QString &m_text;
    const RegionalSettings &m_regional;
    qsizetype m_at = 0;
};

} // namespace

QByteArray reportFileText(const ReportDefinition &report, const RegionalSettings &regional)
{
    QStringList lines{report.SpecUseWith, oneLine(report.title)};
    for (const ChoiceLine &line : choiceLines) {
        const int number = report.*line.member;
        const QString form = line.isSort ? (number < 0 ? u"%1 "_s : u" %1 "_s) : u"%1"_s;
        lines << form.arg(number);
    }
    QStringList ids;
    for (const int specid : report.fields)
        ids << QString::number(specid);
    lines << QString::number(ids.size()) << ids.join(u';');
    for (const OptionLine &line : optionLines) {
        QStringList entries;
        for (size_t specid = 1; specid < report.options.size(); ++specid)
            entries << std::visit(EntryWriter(line, report.options[specid], regional), line.member);
        lines << entries.join(u';');
    }
    return toFileText(lines.join(u'\n') + u'\n');
}

ReadReport readReport(const QByteArray &bytes, const ReportDefinition &current, const Catalogue &catalogue,
                      const RegionalSettings &regional)
{
    ReadReport result;
    if (bytes.size() > mostBytes)
        return result;
    const QString text = fromFileText(bytes);
    try {
        Reader reader(text, regional);
        result.report = reader.newReport(current, catalogue);
        reader.readInto(*result.report);
        result.isValid = true;
    } catch (const InvalidReport &) {
        // What stands before the fault stays.
    }
    return result;
}

void saveReportFile(const QString &path, const ReportDefinition &report, const SharedState &shared)
{
    requireForeignFile(path, shared);
    SafeFile file(path);
    file.write(reportFileText(report, shared.regional));
    file.commit();
}

QByteArray loadReportFile(const QString &path)
{
    QFile file(path);
    const auto fail = [&](RuntimeErrorNumber number) {
        throw NumberedError(number,
                            u"The report file '%1' could not be read.  %2"_s.arg(path, file.errorString()));
    };
    // To open a named pipe is to wait for ever.
    if (const QFileInfo info(path); info.exists() && !info.isFile())
        throw NumberedError(PathFileAccess,
                            u"The report file '%1' could not be read.  It is no file."_s.arg(path));
    if (!file.open(QIODevice::ReadOnly))
        fail(file.exists() ? PermissionDenied : FileNotFound);
    const QByteArray bytes = file.read(mostBytes + 1);
    if (file.error() != QFileDevice::NoError)
        fail(PathFileAccess);
    return bytes;
}

} // namespace obelmark
