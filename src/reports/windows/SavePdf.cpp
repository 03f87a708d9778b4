#include "reports/windows/SavePdf.h"

#include "common/ConfirmReplaceFile.h"
#include "desktop/Desktop.h"
#include "reports/PageSetup.h"
#include "reports/ReportDocument.h"
#include "runtime/NumberedError.h"
#include "runtime/SafeFile.h"
#include <QIODevice>
#include <QPainter>
#include <QPdfWriter>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// A safe file for Qt to write to, which must see no exceptions: an error is kept until commit().
class SafeDevice : public QIODevice
{
public:
    explicit SafeDevice(const QString &path) : m_file(path)
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    bool hasFailed() const { return m_error != nullptr; }
    void commit()
    {
        if (m_error)
            std::rethrow_exception(m_error);
        m_file.commit();
    }

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *bytes, qint64 count) override
    {
        if (m_error)
            return -1;
        try {
            m_file.write(QByteArray(bytes, count));
            return count;
        } catch (...) {
            m_error = std::current_exception();
            return -1;
        }
    }

private:
    SafeFile m_file;
    std::exception_ptr m_error;
};

/// Answers whether all pages have been written: the user may cancel.
bool writePages(const ReportDocument &document, SafeDevice &device, Desktop &desktop)
{
    QPdfWriter writer(&device);
    writer.setResolution(int(twipsPerInch));
    writer.setPageLayout(
        QPageLayout(document.page().paper,
                    document.page().landscape ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF()));
    writer.setTitle(document.title());
    writer.setCreator(QString::fromUtf16(applicationTitle));
    const auto progress = desktop.showProgress(u"Saving..."_s, true);
    QPainter painter(&writer);
    for (qsizetype page = 0; page < document.pageCount() && !device.hasFailed(); ++page) {
        const QString label = u"Now saving Page %1 of %2"_s.arg(page + 1).arg(document.pageCount());
        if (!progress->update(label, page, document.pageCount()))
            return false;
        if (page > 0)
            writer.newPage();
        document.paintPage(painter, page);
    }
    return true;
}

} // namespace

void savePdf(const ReportDocument &document, Desktop &desktop)
{
    QString name = document.title();
    name.replace(u'/', u'-');
    const auto path = desktop.askSaveFile((name.isEmpty() ? u"Report"_s : name) + u".pdf"_s,
                                          u"PDF Files (*.pdf)|*.pdf|All Files (*.*)|*.*"_s);
    if (!path || ConfirmReplaceFile(desktop, *path))
        return;
    try {
        SafeDevice device(*path);
        if (writePages(document, device, desktop))
            device.commit();
    } catch (const NumberedError &error) {
        desktop.showMessage(u"The report could not be saved.  "_s + error.description(),
                            QString::fromUtf16(applicationTitle), Desktop::Icon::Exclamation);
    }
}

} // namespace obelmark
