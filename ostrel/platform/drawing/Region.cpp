// The operations sweep both lists band by band. Only the bands that the other operand touches are rebuilt and put back
// into the list, so that collecting many small rectangles does not copy all of them each time.
#include <algorithm>
#include <limits>

#include <ostrel/platform/drawing/Region.h>

namespace Ostrel::Platform
{

namespace
{

using Rects = std::span<CRect const>;

bool ContainsRect(CRect const& outer, CRect const& inner) noexcept
{
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

// The rectangles of the first band that ends below y.
class BandCursor
{
public:
    explicit BandCursor(Rects rects) noexcept : m_rects(rects) {}

    // The band's rectangles when it covers y, else none.
    [[nodiscard]] Rects At(int y) noexcept
    {
        while (m_first < m_rects.size() && m_rects[m_first].bottom <= y)
        {
            m_first = End();
        }
        bool const covers = m_first < m_rects.size() && m_rects[m_first].top <= y;
        return covers ? m_rects.subspan(m_first, End() - m_first) : Rects();
    }

    // The next top or bottom below y of the band that At looked at; INT_MAX when there is none.
    [[nodiscard]] int NextBreak(int y) const noexcept
    {
        if (m_first == m_rects.size())
        {
            return std::numeric_limits<int>::max();
        }
        return m_rects[m_first].top > y ? m_rects[m_first].top : m_rects[m_first].bottom;
    }

private:
    [[nodiscard]] std::size_t End() const noexcept
    {
        std::size_t end = m_first;
        while (end < m_rects.size() && m_rects[end].top == m_rects[m_first].top)
        {
            ++end;
        }
        return end;
    }

    Rects m_rects;
    std::size_t m_first = 0;
};

// Walks along the edges of one band's rectangles.
class EdgeCursor
{
public:
    explicit EdgeCursor(Rects band) noexcept : m_band(band) {}

    [[nodiscard]] bool IsInside() const noexcept { return m_inside; }
    [[nodiscard]] int Next() const noexcept
    {
        if (m_index == m_band.size())
        {
            return std::numeric_limits<int>::max();
        }
        return m_inside ? m_band[m_index].right : m_band[m_index].left;
    }
    void PassUpTo(int x) noexcept
    {
        while (m_index < m_band.size() && Next() <= x)
        {
            m_index += m_inside ? 1 : 0;
            m_inside = !m_inside;
        }
    }

private:
    Rects m_band;
    std::size_t m_index = 0;
    bool m_inside = false;
};

class BandBuilder
{
public:
    explicit BandBuilder(std::vector<CRect>& rects) noexcept : m_rects(rects) {}

    // Appends the band [top, bottom) of the pixels that `keeps` chooses, joined with the band above if they match.
    template <class Keeps>
    void Append(int top, int bottom, Rects a, Rects b, Keeps keeps)
    {
        std::size_t const first = m_rects.size();
        EdgeCursor edgesA(a);
        EdgeCursor edgesB(b);
        bool open = false;
        for (int x = std::min(edgesA.Next(), edgesB.Next()); x != std::numeric_limits<int>::max();
             x = std::min(edgesA.Next(), edgesB.Next()))
        {
            edgesA.PassUpTo(x);
            edgesB.PassUpTo(x);
            bool const inside = keeps(edgesA.IsInside(), edgesB.IsInside());
            if (inside && !open)
            {
                m_rects.emplace_back(x, top, x, bottom);
            }
            else if (!inside && open)
            {
                m_rects.back().right = x;
            }
            open = inside;
        }
        Join(first);
    }

private:
    void Join(std::size_t first)
    {
        std::size_t const count = m_rects.size() - first;
        if (count == 0)
        {
            return;
        }
        auto const above = m_rects.begin() + static_cast<std::ptrdiff_t>(m_aboveFirst);
        auto const band = m_rects.begin() + static_cast<std::ptrdiff_t>(first);
        bool const matches =
            first - m_aboveFirst == count && above->bottom == band->top &&
            std::equal(above, band, band,
                       [](CRect const& a, CRect const& b) { return a.left == b.left && a.right == b.right; });
        if (!matches)
        {
            m_aboveFirst = first;
            return;
        }
        int const bottom = band->bottom;
        std::for_each(above, band, [bottom](CRect& rect) { rect.bottom = bottom; });
        m_rects.resize(first);
    }

    std::vector<CRect>& m_rects;
    std::size_t m_aboveFirst = 0;
};

template <class Keeps>
void Sweep(Rects a, Rects b, std::vector<CRect>& result, Keeps keeps)
{
    BandCursor bandsA(a);
    BandCursor bandsB(b);
    BandBuilder builder(result);
    int y = std::min(a.empty() ? b.front().top : a.front().top, b.empty() ? a.front().top : b.front().top);
    while (true)
    {
        Rects const bandA = bandsA.At(y);
        Rects const bandB = bandsB.At(y);
        int const next = std::min(bandsA.NextBreak(y), bandsB.NextBreak(y));
        if (next == std::numeric_limits<int>::max())
        {
            return;
        }
        builder.Append(y, next, bandA, bandB, keeps);
        y = next;
    }
}

CRect BoundsOf(Rects rects) noexcept
{
    if (rects.empty())
    {
        return {};
    }
    CRect bounds(rects.front().left, rects.front().top, rects.front().right, rects.back().bottom);
    for (CRect const& rect : rects)
    {
        bounds.left = std::min(bounds.left, rect.left);
        bounds.right = std::max(bounds.right, rect.right);
    }
    return bounds;
}

} // namespace

Region::Region(CRect const& rect) noexcept
{
    Set(rect);
}

std::span<CRect const> Region::Rects() const noexcept
{
    if (IsEmpty())
    {
        return {};
    }
    return m_rects.empty() ? std::span<CRect const>(&m_bounds, 1) : std::span<CRect const>(m_rects);
}

bool Region::Contains(CPoint point) const noexcept
{
    return m_bounds.PtInRect(point) && Intersects(CRect(point, CSize(1, 1)));
}

bool Region::Contains(CRect const& rect) const noexcept
{
    if (rect.IsRectEmpty() || !ContainsRect(m_bounds, rect))
    {
        return false;
    }
    if (m_rects.empty())
    {
        return true;
    }
    int covered = rect.top; // every band must hold the width in one rectangle, and bands must follow without a gap
    auto const first = std::ranges::partition_point(m_rects, [&](CRect const& r) { return r.bottom <= rect.top; });
    for (auto it = first; it != m_rects.end() && it->top <= covered && covered < rect.bottom; ++it)
    {
        if (it->left <= rect.left && it->right >= rect.right)
        {
            covered = it->bottom;
        }
    }
    return covered >= rect.bottom;
}

bool Region::Intersects(CRect const& rect) const noexcept
{
    if ((m_bounds & rect).IsRectEmpty())
    {
        return false;
    }
    auto const first = std::ranges::partition_point(Rects(), [&](CRect const& r) { return r.bottom <= rect.top; });
    auto const last = std::ranges::partition_point(Rects(), [&](CRect const& r) { return r.top < rect.bottom; });
    return std::any_of(first, last, [&](CRect const& r) { return r.left < rect.right && rect.left < r.right; });
}

void Region::Clear() noexcept
{
    m_bounds = CRect();
    m_rects.clear();
}

void Region::Set(CRect const& rect) noexcept
{
    m_bounds = rect.IsRectEmpty() ? CRect() : rect;
    m_rects.clear();
}

void Region::Union(CRect const& rect)
{
    if (IsEmpty() || ContainsRect(rect, m_bounds))
    {
        if (!rect.IsRectEmpty())
        {
            Set(rect);
        }
    }
    else if (!rect.IsRectEmpty() && !Contains(rect))
    {
        Combine({&rect, 1}, Operation::Union);
    }
}

void Region::Union(Region const& other)
{
    if (other.IsEmpty() || this == &other)
    {
        return;
    }
    if (IsEmpty())
    {
        *this = other;
    }
    else if (other.IsRect())
    {
        Union(other.m_bounds);
    }
    else
    {
        Combine(other.Rects(), Operation::Union);
    }
}

void Region::Subtract(CRect const& rect)
{
    if (!rect.IsRectEmpty() && ContainsRect(rect, m_bounds))
    {
        Clear();
    }
    else if (Intersects(rect))
    {
        Combine({&rect, 1}, Operation::Subtract);
    }
}

void Region::Subtract(Region const& other)
{
    if (this == &other)
    {
        Clear();
    }
    else if (!(m_bounds & other.m_bounds).IsRectEmpty())
    {
        Combine(other.Rects(), Operation::Subtract);
    }
}

void Region::Intersect(CRect const& rect)
{
    if (m_rects.empty())
    {
        m_bounds &= rect;
    }
    else if (!ContainsRect(rect, m_bounds))
    {
        (m_bounds & rect).IsRectEmpty() ? Clear() : Combine({&rect, 1}, Operation::Intersect);
    }
}

void Region::Intersect(Region const& other)
{
    if (other.m_rects.empty())
    {
        Intersect(other.m_bounds);
    }
    else if ((m_bounds & other.m_bounds).IsRectEmpty())
    {
        Clear();
    }
    else if (this != &other)
    {
        Combine(other.Rects(), Operation::Intersect);
    }
}

void Region::Xor(Region const& other)
{
    if (this == &other)
    {
        Clear();
    }
    else if (IsEmpty())
    {
        *this = other;
    }
    else if (!other.IsEmpty())
    {
        Combine(other.Rects(), Operation::Xor);
    }
}

void Region::Offset(int dx, int dy) noexcept
{
    if (IsEmpty())
    {
        return;
    }
    m_bounds.OffsetRect(dx, dy);
    for (CRect& rect : m_rects)
    {
        rect.OffsetRect(dx, dy);
    }
}

bool operator==(Region const& a, Region const& b) noexcept
{
    return a.m_bounds == b.m_bounds && a.m_rects == b.m_rects;
}

// Bands above and below what the other operand touches stay as they are, or go when the pixels of both are wanted. A
// band that only borders on it is rebuilt too: it may have to be joined.
void Region::Combine(std::span<CRect const> other, Operation operation)
{
    static thread_local std::vector<CRect> rebuilt;
    rebuilt.clear();
    int const top = other.front().top;
    int const bottom = other.back().bottom;
    if (m_rects.empty() && !IsEmpty())
    {
        m_rects.push_back(m_bounds);
    }
    auto const first = std::ranges::partition_point(m_rects, [top](CRect const& r) { return r.bottom < top; });
    auto const last = std::partition_point(first, m_rects.end(), [bottom](CRect const& r) { return r.top <= bottom; });
    std::span<CRect const> const touched(first, last);
    switch (operation)
    {
    case Operation::Union:
        Sweep(touched, other, rebuilt, [](bool a, bool b) { return a || b; });
        break;
    case Operation::Subtract:
        Sweep(touched, other, rebuilt, [](bool a, bool b) { return a && !b; });
        break;
    case Operation::Intersect:
        Sweep(touched, other, rebuilt, [](bool a, bool b) { return a && b; });
        break;
    case Operation::Xor:
        Sweep(touched, other, rebuilt, [](bool a, bool b) { return a != b; });
        break;
    }
    if (operation == Operation::Intersect)
    {
        m_rects.assign(rebuilt.begin(), rebuilt.end());
    }
    else
    {
        Replace(first - m_rects.begin(), last - m_rects.begin(), rebuilt);
    }
    m_bounds = BoundsOf(m_rects);
    if (m_rects.size() <= 1)
    {
        m_rects.clear();
    }
}

void Region::Replace(std::ptrdiff_t first, std::ptrdiff_t last, std::span<CRect const> rects)
{
    auto const count = static_cast<std::ptrdiff_t>(rects.size());
    std::ptrdiff_t const common = std::min(count, last - first);
    std::copy_n(rects.begin(), common, m_rects.begin() + first);
    if (count < last - first)
    {
        m_rects.erase(m_rects.begin() + first + common, m_rects.begin() + last);
    }
    else
    {
        m_rects.insert(m_rects.begin() + first + common, rects.begin() + common, rects.end());
    }
}

} // namespace Ostrel::Platform
