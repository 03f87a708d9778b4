// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/qt/FileDialogs.h"

#include <QFileDialog>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// "Text Files (*.txt)|*.txt|All Files (*.*)|*.*" as "Text Files (*.txt)", "All Files (*)": the dialog takes
/// its patterns from the parentheses.
QStringList nameFilters(const QString &filter)
{
    const QStringList pieces = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < pieces.size(); i += 2) {
        const QString label = pieces[i].section(u" ("_s, 0, 0);
        QStringList patterns = pieces[i + 1].split(u';');
        patterns.replaceInStrings(u"*.*"_s, u"*"_s);
        filters.append(u"%1 (%2)"_s.arg(label, patterns.join(u' ')));
    }
    return filters;
}

std::optional<QString> run(QFileDialog &dialog)
{
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().constFirst();
}

} // namespace

std::optional<QString> runSaveDialog(const QString &fileName, const QString &filter, QWidget *owner)
{
    QFileDialog dialog(owner, u"Save As"_s);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    // The program asks that question itself.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setNameFilters(nameFilters(filter));
    dialog.selectFile(fileName);
    return run(dialog);
}

std::optional<QString> runOpenDialog(const QString &filter, QWidget *owner)
{
    QFileDialog dialog(owner, u"Open"_s);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    // A name that leads nowhere is for the caller to report.
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(nameFilters(filter));
    return run(dialog);
}

} // namespace obelmark
