#include <algorithm>
#include <optional>

#include <ostrel/gui/paint/GridCell.h>
#include <ostrel/gui/paint/PaintContext.h>
#include <ostrel/gui/paint/PaintFilter.h>
#include <ostrel/gui/paint/ProgressCellPaintFormat.h>
#include <ostrel/platform/base/Narrow.h>
#include <ostrel/platform/drawing/DeviceContext.h>
#include <ostrel/platform/drawing/SystemLook.h>

namespace Ostrel::GUI
{
namespace
{

/// The low 32 bits of an integer; nothing for any other type.
std::optional<LONG> IntegerOf(Common::CValue const& value)
{
    switch (value.GetType())
    {
    case Common::TypeChar:
        return static_cast<char>(value);
    case Common::TypeUChar:
        return static_cast<unsigned char>(value);
    case Common::TypeShort:
        return static_cast<short>(value);
    case Common::TypeUShort:
        return static_cast<unsigned short>(value);
    case Common::TypeLong:
        return static_cast<LONG>(static_cast<long>(value));
    case Common::TypeULong:
        return static_cast<LONG>(static_cast<unsigned long>(value));
    case Common::TypeInt64:
        return static_cast<LONG>(static_cast<__int64>(value));
    default:
        return std::nullopt;
    }
}

} // namespace

CProgressCellPaintFormat::CProgressCellPaintFormat(unsigned long barColor, long minimum, long maximum) noexcept
    : m_barColor(static_cast<COLORREF>(barColor)),
      m_minimum(static_cast<LONG>(minimum)),
      m_maximum(static_cast<LONG>(maximum))
{}

void CProgressCellPaintFormat::DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    CCellPaintFormat::DrawCell(cell, context, filter & ~static_cast<unsigned int>(PaintHighlight));
}

ICellPaintFormat* CProgressCellPaintFormat::Clone() const
{
    return new CProgressCellPaintFormat(*this);
}

void CProgressCellPaintFormat::OnDrawText(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    std::optional<LONG> const value = IntegerOf(cell.GetValue());
    if ((filter & PaintText) == 0 || m_maximum <= m_minimum || !value.has_value())
    {
        return;
    }
    CRect bar = const_cast<CProgressCellPaintFormat*>(this)->GetTextRect(cell, context, filter);
    bar.DeflateRect(Platform::Scaled(1), Platform::Scaled(1));
    double const filled = static_cast<double>(std::clamp(*value, m_minimum, m_maximum)) - m_minimum;
    double const range = static_cast<double>(m_maximum) - m_minimum;
    bar.right = bar.left + static_cast<int>(bar.Width() * filled / range); // the division last: its rounding counts
    if (!bar.IsRectEmpty())
    {
        context.GetDC().FillSolidRect(bar, m_barColor);
    }
}

} // namespace Ostrel::GUI
