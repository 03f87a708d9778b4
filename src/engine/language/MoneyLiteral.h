// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringView>

namespace obelmark {

/// The number literal times 10,000, worked out in decimal digits: "2.5" is "25000". What is finer than a
/// ten-thousandth becomes ".5", which compares with every whole count as the exact value does.
QString inTenThousandths(QStringView number);

} // namespace obelmark
