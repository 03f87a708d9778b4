#include "reports/PreviewTarget.h"

#include "common/SharedState.h"
#include "desktop/Desktop.h"
#include "reports/ReportDocument.h"
#include "reports/ReportPreview.h"

namespace obelmark {

// A document that is left halfway may stand in a window that is open: it ends where it was left.
PreviewTarget::~PreviewTarget()
{
    endDocument();
}

void PreviewTarget::StartReportOutput(const ReportOpening &opening)
{
    m_shared.TableFormat = opening.TableFormat;
    m_shared.TableHeading = opening.TableHeading;
    m_shared.desktop.setHourglass(true);
    m_started = true;
    ReportPageSetup setup{opening.pageHeader, opening.pageFooter, opening.landscape, {}};
    if (m_shared.RepeatHeading)
        setup.heading = {opening.TableFormat, opening.TableHeading, 0xFF000000 | m_shared.HeadingShade};
    m_preview.document().start(setup);
}

void PreviewTarget::addTable(QStringView format, QStringView body)
{
    m_preview.document().addTable(format, body);
}

void PreviewTarget::addLine(QStringView) {}

void PreviewTarget::FinishReportOutput()
{
    endDocument();
    m_preview.show();
}

void PreviewTarget::finishEmpty()
{
    endDocument();
}

void PreviewTarget::endDocument()
{
    if (!m_started)
        return;
    m_started = false;
    m_preview.document().end();
    m_shared.desktop.setHourglass(false);
}

} // namespace obelmark
