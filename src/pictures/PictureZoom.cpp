// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictures/PictureZoom.h"

#include <algorithm>
#include <cmath>

namespace obelmark {

namespace {

constexpr double largestScale = 32;

double kept(double position, double length, double room)
{
    return length <= room ? (room - length) / 2 : std::clamp(position, room - length, 0.0);
}

} // namespace

void PictureZoom::setPicture(QSizeF size)
{
    m_picture = size;
    fit();
}

void PictureZoom::setViewport(QSizeF size)
{
    const QPointF growth((size.width() - m_viewport.width()) / 2, (size.height() - m_viewport.height()) / 2);
    m_viewport = size;
    if (m_fitted)
        fit();
    else
        moveTo(m_topLeft + growth);
}

QRectF PictureZoom::place() const
{
    // Of a picture that is a thousand times as wide as high there is a line left to see.
    const auto shown = [this](double length) {
        return length > 0 ? std::max(1.0, std::round(length * m_scale)) : 0.0;
    };
    return QRectF(std::round(m_topLeft.x()), std::round(m_topLeft.y()), shown(m_picture.width()),
                  shown(m_picture.height()));
}

double PictureZoom::fittingScale() const
{
    if (m_picture.isEmpty())
        return 1;
    return std::min({1.0, m_viewport.width() / m_picture.width(), m_viewport.height() / m_picture.height()});
}

void PictureZoom::fit()
{
    m_fitted = true;
    m_scale = fittingScale();
    moveTo({});
}

void PictureZoom::zoom(double factor, QPointF about)
{
    const double fitting = fittingScale();
    const double scale = std::clamp(m_scale * factor, fitting, largestScale);
    const QPointF topLeft = about - (about - m_topLeft) * (scale / m_scale);
    m_scale = scale;
    m_fitted = scale == fitting;
    moveTo(topLeft);
}

void PictureZoom::pan(QPointF by)
{
    moveTo(m_topLeft + by);
}

void PictureZoom::toggle(QPointF about)
{
    if (m_fitted)
        zoom(1 / m_scale, about);
    else
        fit();
}

void PictureZoom::moveTo(QPointF topLeft)
{
    m_topLeft = {kept(topLeft.x(), m_picture.width() * m_scale, m_viewport.width()),
                 kept(topLeft.y(), m_picture.height() * m_scale, m_viewport.height())};
}

} // namespace obelmark
