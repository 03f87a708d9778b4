// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "pictures/metafiles/MetafileRecord.h"

namespace obelmark {

/// The records of a 16-bit metafile that are played: META_SAVEDC and so on of [MS-WMF].
enum class Meta : quint16 {
    Eof = 0x0000,
    SaveDC = 0x001E,
    RestoreDC = 0x0127,
    SetBkMode = 0x0102,
    SetBkColor = 0x0201,
    SetTextColor = 0x0209,
    SetTextAlign = 0x012E,
    SetPolyFillMode = 0x0106,
    SetWindowOrg = 0x020B,
    SetWindowExt = 0x020C,
    OffsetWindowOrg = 0x020F,
    CreatePenIndirect = 0x02FA,
    CreateBrushIndirect = 0x02FC,
    CreateFontIndirect = 0x02FB,
    CreatePalette = 0x00F7,
    CreatePatternBrush = 0x01F9,
    DibCreatePatternBrush = 0x0142,
    CreateRegion = 0x06FF,
    SelectObject = 0x012D,
    DeleteObject = 0x01F0,
    MoveTo = 0x0214,
    LineTo = 0x0213,
    Polyline = 0x0325,
    Polygon = 0x0324,
    PolyPolygon = 0x0538,
    Rectangle = 0x041B,
    Ellipse = 0x0418,
    RoundRect = 0x061C,
    Arc = 0x0817,
    Pie = 0x081A,
    Chord = 0x0830,
    TextOut = 0x0521,
    ExtTextOut = 0x0A32,
    IntersectClipRect = 0x0416,
    PatBlt = 0x061D,
    DibBitBlt = 0x0940,
    DibStretchBlt = 0x0B41,
    StretchDib = 0x0F43,
};

std::span<const MetafileRecord<Meta>> wmfRecords();

} // namespace obelmark
