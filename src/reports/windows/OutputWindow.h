#pragma once

#include "reports/ReportPreview.h"
#include <memory>

namespace obelmark {

class Desktop;
class frmOutput;

/// The one report output window of the program, made again after it has been closed.
class OutputWindow : public ReportPreview
{
public:
    /// The desktop must outlive it.
    explicit OutputWindow(Desktop &desktop);
    ~OutputWindow() override;

    /// Valid until the window is closed.
    ReportDocument &document() override;
    void show() override;

private:
    frmOutput &window();

    Desktop &m_desktop;
    std::unique_ptr<frmOutput> m_window;
};

} // namespace obelmark
