// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

namespace obelmark {

/// The text in the system's text encoding (UTF-8 here), otherwise as it is.
QByteArray inFileEncoding(QStringView text);
/// The bytes of a text file: inFileEncoding(), every line break as CR LF.
QByteArray toFileText(const QString &text);
/// Reads toFileText(), every line break as LF. Bytes that are no UTF-8 come from a file of an older system
/// and are read as Windows-1252; a byte order mark is dropped.
QString fromFileText(const QByteArray &bytes);

/// The stored form of a text of several lines: every line break (CR LF, CR or LF) as CR LF.
QString withCrLf(const QString &text);
/// The form that edit controls use: every line break (CR LF, CR or LF) as LF.
QString withLf(const QString &text);

} // namespace obelmark
