// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "pictures/Picture.h"
#include "pictures/PictureZoom.h"
#include <QWidget>
#include <vector>

namespace obelmark {

/// A viewport on one picture, which fits into it at first. The wheel enlarges about the pointer, dragging
/// moves, a double click changes between fitted and 1:1 (one pixel of the screen for one of the picture); on
/// the keyboard +, -, 0 and the arrows.
class PictureView : public QWidget
{
    Q_OBJECT
public:
    explicit PictureView(QWidget *parent = nullptr);

    const Picture &picture() const { return m_picture; }
    void setPicture(const Picture &picture);
    /// No picture; \a reason stands in its place.
    void clear(const QString &reason = {});

    /// Its size in pixels of the screen.
    QSize pixels() const;
    /// What pictures are to be read for: the previews cover the screen, so that a larger window needs no
    /// more.
    Picture::Boxes boxes() const;
    const PictureZoom &zoom() const { return m_zoom; }
    QSize sizeHint() const override { return {521, 465}; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showZoom();
    /// The smallest image on hand with pixels enough for the picture at \a width.
    const QImage &imageFor(double width);
    QPointF atPixel(QPointF position) const { return position * devicePixelRatio(); }

    Picture m_picture;
    QString m_reason;
    PictureZoom m_zoom;
    std::vector<QImage> m_images; ///< the picture, then each half as wide as the one before
    QImage m_fitted;              ///< as it was last painted when fitted
    QPointF m_dragged;
};

} // namespace obelmark
