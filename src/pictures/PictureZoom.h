// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace obelmark {

/// How a picture lies in its viewport. All lengths and positions are pixels of the screen. A picture that
/// leaves room in a direction stands in the middle, one that does not leaves no gap.
class PictureZoom
{
public:
    /// A new picture is fitted.
    void setPicture(QSizeF size);
    /// Another size of the viewport: what was fitted stays fitted, else the middle stays the middle.
    void setViewport(QSizeF size);

    /// Pixels of the screen for one of the picture.
    double scale() const { return m_scale; }
    /// Where the whole picture lies, at full pixels.
    QRectF place() const;
    bool isFitted() const { return m_fitted; }

    /// As large as the viewport takes, but no larger than 1:1.
    void fit();
    /// What lies at \a about stays there.
    void zoom(double factor, QPointF about);
    void pan(QPointF by);
    /// From fitted to 1:1, from anything else to fitted.
    void toggle(QPointF about);

private:
    double fittingScale() const;
    void moveTo(QPointF topLeft);

    QSizeF m_picture;
    QSizeF m_viewport;
    QPointF m_topLeft;
    double m_scale = 1;
    bool m_fitted = true;
};

} // namespace obelmark
