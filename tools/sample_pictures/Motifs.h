// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPainterPath>

namespace obelmark {

/// What stands in the middle of a coin, around the origin, within a radius of about 165.
using Motif = QPainterPath (*)();

QPointF onCircle(double r, double degrees);
/// The outline of \a shape as a band of metal.
QPainterPath outlined(const QPainterPath &shape, double width = 12);
/// A polygon with its corners on a circle, the first one at that angle.
QPainterPath polygon(int corners, double r, double firstAngle);

QPainterPath nothing();
QPainterPath twoTriangles();
QPainterPath star();
QPainterPath starWithRays();
QPainterPath sun();
QPainterPath crescentAndStar();
QPainterPath cross();
QPainterPath saltire();
QPainterPath petals();
QPainterPath waves();
QPainterPath owl();
QPainterPath menorah();
QPainterPath sprig();

/// Large figures or letters.
QPainterPath figures(const QString &text);
/// The same in a wreath.
QPainterPath wreathed(const QString &text);

} // namespace obelmark
