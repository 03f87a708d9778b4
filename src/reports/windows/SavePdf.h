#pragma once

namespace obelmark {

class Desktop;
class ReportDocument;

/// Asks for a file and writes the report into it as PDF. A file that is there already is replaced when the
/// user agrees and all has been written, else it stays as it was.
void savePdf(const ReportDocument &document, Desktop &desktop);

} // namespace obelmark
