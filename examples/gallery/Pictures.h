// Pictures that the gallery draws itself, so that it needs no files.
#pragma once

#include <ostrel/GUI.h>

namespace Gallery
{

inline constexpr int kIconCount = 4;

/// Four icons of that side in pixels: a disc, a square, a triangle and a rhomb.
void MakeIcons(CImageList& icons, int side);

/// A landscape of that size in pixels.
void MakeLandscape(CBitmap& picture, CSize size);

} // namespace Gallery
