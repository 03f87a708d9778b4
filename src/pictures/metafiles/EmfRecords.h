// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "pictures/metafiles/MetafileRecord.h"

namespace obelmark {

/// The records of an enhanced metafile that are played: EMR_POLYBEZIER and so on of [MS-EMF].
enum class Emr : quint32 {
    PolyBezier = 2,
    Polygon = 3,
    Polyline = 4,
    PolyBezierTo = 5,
    PolylineTo = 6,
    PolyPolyline = 7,
    PolyPolygon = 8,
    SetWindowExtEx = 9,
    SetWindowOrgEx = 10,
    SetViewportExtEx = 11,
    SetViewportOrgEx = 12,
    Eof = 14,
    SetMapMode = 17,
    SetBkMode = 18,
    SetPolyFillMode = 19,
    SetTextAlign = 22,
    SetTextColor = 24,
    SetBkColor = 25,
    MoveToEx = 27,
    IntersectClipRect = 30,
    SaveDC = 33,
    RestoreDC = 34,
    SetWorldTransform = 35,
    ModifyWorldTransform = 36,
    SelectObject = 37,
    CreatePen = 38,
    CreateBrushIndirect = 39,
    DeleteObject = 40,
    Ellipse = 42,
    Rectangle = 43,
    RoundRect = 44,
    Arc = 45,
    Chord = 46,
    Pie = 47,
    LineTo = 54,
    ArcTo = 55,
    BeginPath = 59,
    EndPath = 60,
    CloseFigure = 61,
    FillPath = 62,
    StrokeAndFillPath = 63,
    StrokePath = 64,
    SelectClipPath = 67,
    BitBlt = 76,
    StretchBlt = 77,
    SetDIBitsToDevice = 80,
    StretchDIBits = 81,
    ExtCreateFontIndirectW = 82,
    ExtTextOutA = 83,
    ExtTextOutW = 84,
    PolyBezier16 = 85,
    Polygon16 = 86,
    Polyline16 = 87,
    PolyBezierTo16 = 88,
    PolylineTo16 = 89,
    PolyPolyline16 = 90,
    PolyPolygon16 = 91,
    CreateMonoBrush = 93,
    CreateDIBPatternBrushPt = 94,
    ExtCreatePen = 95,
};

/// From the start of a record to its contents: its type and its size.
constexpr int emfRecordHeader = 8;

/// Lines, areas and paths.
std::span<const MetafileRecord<Emr>> emfFigures();
/// Texts and bitmaps.
std::span<const MetafileRecord<Emr>> emfImages();
/// What figures and images are drawn with, and where: state, mapping, objects.
std::span<const MetafileRecord<Emr>> emfSettings();

} // namespace obelmark
