#include "Pictures.h"

#include <cmath>
#include <numbers>
#include <vector>

namespace Gallery
{

namespace
{

constexpr COLORREF kNothing = RGB(255, 0, 255);
constexpr COLORREF kIconColors[kIconCount] = {RGB(38, 110, 217), RGB(46, 160, 90), RGB(230, 150, 30), RGB(200, 60, 90)};

/// A memory device context that draws on a new bitmap.
class Canvas
{
public:
    Canvas(CBitmap& bitmap, CSize size)
    {
        bitmap.CreateCompatibleBitmap(nullptr, size.cx, size.cy);
        dc.CreateCompatibleDC(nullptr);
        dc.SelectObject(&bitmap);
    }
    Canvas(Canvas const&) = delete;
    Canvas& operator=(Canvas const&) = delete;
    ~Canvas() { dc.SelectObject(static_cast<CBitmap*>(nullptr)); }

    void FillPolygon(std::vector<POINT> const& corners, COLORREF color)
    {
        CPen pen(PS_SOLID, 1, color);
        CBrush brush(color);
        dc.SelectObject(&pen);
        dc.SelectObject(&brush);
        dc.Polygon(corners.data(), static_cast<int>(corners.size()));
    }

    CDC dc;
};

std::vector<POINT> RegularPolygon(CPoint center, double radius, int corners, double turn)
{
    std::vector<POINT> points;
    for (int i = 0; i < corners; ++i)
    {
        double const angle = 2 * std::numbers::pi * i / corners + turn;
        points.push_back(CPoint(center.x + static_cast<int>(std::lround(radius * std::sin(angle))),
                                center.y - static_cast<int>(std::lround(radius * std::cos(angle)))));
    }
    return points;
}

} // namespace

void MakeIcons(CImageList& icons, int side)
{
    constexpr int kCorners[kIconCount] = {24, 4, 3, 4};
    constexpr double kTurns[kIconCount] = {0, std::numbers::pi / 4, 0, 0};
    CBitmap strip;
    {
        Canvas canvas(strip, CSize(side * kIconCount, side));
        canvas.dc.FillSolidRect(0, 0, side * kIconCount, side, kNothing);
        for (int i = 0; i < kIconCount; ++i)
        {
            CPoint const center(i * side + side / 2, side / 2 + (i == 2 ? side / 16 : 0));
            canvas.FillPolygon(RegularPolygon(center, side * 0.45, kCorners[i], kTurns[i]), kIconColors[i]);
        }
    }
    icons.Create(side, side, ILC_COLOR32 | ILC_MASK, kIconCount, 1);
    icons.Add(&strip, kNothing);
}

void MakeLandscape(CBitmap& picture, CSize size)
{
    Canvas canvas(picture, size);
    int const horizon = size.cy * 6 / 10;
    for (int y = 0; y < horizon; ++y)
    {
        int const light = y * 90 / horizon;
        canvas.dc.FillSolidRect(0, y, size.cx, 1, RGB(120 + light, 175 + light * 2 / 3, 235));
    }
    canvas.dc.FillSolidRect(0, horizon, size.cx, size.cy - horizon, RGB(120, 175, 105));
    canvas.FillPolygon(RegularPolygon({size.cx * 3 / 4, size.cy / 4}, size.cy * 0.11, 32, 0), RGB(255, 225, 120));
    canvas.FillPolygon({{0, horizon}, {size.cx / 4, size.cy / 4}, {size.cx / 2, horizon}}, RGB(105, 120, 150));
    canvas.FillPolygon({{size.cx / 3, horizon}, {size.cx * 6 / 10, size.cy * 35 / 100}, {size.cx * 9 / 10, horizon}},
                       RGB(130, 145, 175));
}

} // namespace Gallery
