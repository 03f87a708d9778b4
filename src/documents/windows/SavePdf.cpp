// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "documents/windows/SavePdf.h"

#include "common/ConfirmReplaceFile.h"
#include "common/OwnFiles.h"
#include "common/SharedState.h"
#include "desktop/Desktop.h"
#include "documents/PageSetup.h"
#include "documents/ReportDocument.h"
#include "runtime/NumberedError.h"
#include "runtime/SafeFile.h"
#include <QIODevice>
#include <QPainter>
#include <QPdfWriter>
#include <functional>
#include <numeric>

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
bool writePages(const ReportDocument &document, const PdfJob &job, SafeDevice &device, Desktop &desktop)
{
    QPdfWriter writer(&device);
    writer.setResolution(int(twipsPerInch));
    writer.setPageLayout(
        QPageLayout(document.page().paper,
                    document.page().landscape ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF()));
    writer.setTitle(document.title());
    writer.setCreator(QString::fromUtf16(applicationTitle));
    const auto progress = desktop.showProgress(job.title, true);
    const auto count = qint64(job.pages.size());
    QPainter painter(&writer);
    for (qint64 done = 0; done < count && !device.hasFailed(); ++done) {
        if (!progress->update(job.label.arg(done + 1).arg(count) + job.device, done, count))
            return false;
        if (done > 0)
            writer.newPage();
        document.paintPage(painter, job.pages[std::size_t(done)]);
    }
    return true;
}

/// Does the work, or tells why it failed.
bool succeeds(const QString &failure, SharedState &shared, const std::function<void()> &work)
{
    try {
        work();
        return true;
    } catch (const NumberedError &error) {
        shared.desktop.showMessage(failure + u"  "_s + error.description());
        return false;
    }
}

} // namespace

void writePdf(const ReportDocument &document, const PdfJob &job, SharedState &shared)
{
    succeeds(job.failure, shared, [&] {
        requireForeignFile(job.path, shared);
        SafeDevice device(job.path);
        if (writePages(document, job, device, shared.desktop))
            device.commit();
    });
}

void savePdf(const ReportDocument &document, SharedState &shared)
{
    QString name = document.title();
    name.replace(u'/', u'-');
    const auto path = shared.desktop.askSaveFile((name.isEmpty() ? u"Report"_s : name) + u".pdf"_s,
                                                 u"PDF Files (*.pdf)|*.pdf|All Files (*.*)|*.*"_s);
    if (!path)
        return;
    PdfJob job{*path, std::vector<qsizetype>(std::size_t(document.pageCount())), u"Saving..."_s,
               u"Now saving Page %1 of %2"_s, u"The report could not be saved."_s};
    std::iota(job.pages.begin(), job.pages.end(), 0);
    // Nobody is asked whether to replace what is not to be replaced.
    if (succeeds(job.failure, shared, [&] { requireForeignFile(*path, shared); }) &&
        !ConfirmReplaceFile(shared.desktop, *path))
        writePdf(document, job, shared);
}

} // namespace obelmark
