#include "QuoteRows.h"

#include <algorithm>

#include "Calibration.h"

namespace Ostrel::Benchmarks
{

using namespace Common;
using namespace GUI;

namespace
{

constexpr int kViewWidth = 1600;
constexpr int kViewHeight = 900;
constexpr UINT kHeartbeatMs = 10;
constexpr double kTurnSeconds = 1.0 / 60;
constexpr std::array<char const*, 5> kStatusNames = {"Open", "Auction", "Halted", "Closed", "Late"};

double ProcessorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

CDoubleFormat* PriceFormat()
{
    return new CDoubleFormat(3, true);
}

// In lots of a hundred, so that many quotes are equal in it.
std::int32_t DrawSize(Random& random)
{
    return static_cast<std::int32_t>(100 * random.Below(100));
}

double NumberOf(CQuote& quote, long fid)
{
    switch (quote.GetFieldType(fid))
    {
    case TypeDouble:
        return quote.GetDouble(fid);
    case TypeInt64:
        return static_cast<double>(quote.GetInt64(fid));
    default:
        return static_cast<double>(quote.GetLong(fid));
    }
}

/// Negative when the first belongs before the second. Written without the grid's own comparison.
int Compare(std::vector<CSortInfo> const& levels, CQuote& first, CQuote& second)
{
    for (CSortInfo const& level : levels)
    {
        long const fid = level.GetFid();
        int order = 0;
        if (first.GetFieldType(fid) == TypeStlString)
        {
            order = first.GetStlString(fid).compare(second.GetStlString(fid));
        }
        else
        {
            double const difference = NumberOf(first, fid) - NumberOf(second, fid);
            order = difference < 0 ? -1 : (difference > 0 ? 1 : 0);
        }
        if (order != 0)
        {
            return level.GetReverseSort() ? -order : order;
        }
    }
    return 0;
}

/// Walks what the grid shows.
class Inspector : public CGrid::IForEach
{
public:
    Inspector(std::vector<CSortInfo> const& levels, QuoteFilter const* filter) : m_levels(levels), m_filter(filter) {}

    bool Visit(CGrid* /*grid*/, CGridItem* /*item*/, CDataObject* object) override
    {
        auto* const quote = static_cast<CQuote*>(object);
        isInOrder = isInOrder && (m_previous == nullptr || Compare(m_levels, *m_previous, *quote) <= 0);
        isFiltered = isFiltered && (m_filter == nullptr || m_filter->IsShown(*quote));
        m_previous = quote;
        ++count;
        return true;
    }

    bool isInOrder = true;
    bool isFiltered = true;
    std::size_t count = 0;

private:
    std::vector<CSortInfo> const& m_levels;
    QuoteFilter const* m_filter;
    CQuote* m_previous = nullptr;
};

double DrawChange(Random& random)
{
    return (random.Price() - 505) / 100;
}

} // namespace

CFieldMap const* CQuote::Fields()
{
    static auto const map = CFieldMapBuilder<CQuote>()
                                .Field(kSymbol, "Symbol", &CQuote::GetSymbol)
                                .Field(kBid, "Bid", &CQuote::GetBid, nullptr, PriceFormat())
                                .Field(kAsk, "Ask", &CQuote::GetAsk, nullptr, PriceFormat())
                                .Field(kLast, "Last", &CQuote::GetLast, nullptr, PriceFormat())
                                .Field(kVolume, "Volume", &CQuote::GetVolume)
                                .Field(kChangePercent, "Change %", &CQuote::GetChangePercent, nullptr, PriceFormat())
                                .Field(kTime, "Time", &CQuote::GetTime)
                                .Field(kBidSize, "Bid size", &CQuote::GetBidSize)
                                .Field(kAskSize, "Ask size", &CQuote::GetAskSize)
                                .Field(kIsHalted, "Halted", &CQuote::IsHalted)
                                .Field(kStatus, "Status", &CQuote::GetStatus)
                                .Field(kNote, "Note", &CQuote::GetNote)
                                .Build();
    return map.get();
}

CQuote::CQuote(std::size_t number, Random& random)
    : m_bid(random.Price()),
      m_ask(random.Price()),
      m_last(random.Price()),
      m_changePercent(DrawChange(random)),
      m_volume(static_cast<std::int64_t>(random.Next() >> 24U)),
      m_bidSize(DrawSize(random)),
      m_askSize(DrawSize(random)),
      m_timeSeconds(static_cast<std::int32_t>(random.Below(86'400))),
      m_status(static_cast<std::uint8_t>(random.Below(kStatusNames.size()))),
      m_isHalted(random.Below(20) == 0),
      m_symbol("SYM" + std::to_string(number)),
      m_note("Note " + std::to_string(number % 1000))
{}

CQuote::~CQuote()
{
    NotifyDelete(); // rows may still read the values while they go
}

std::string CQuote::GetTime() const
{
    std::array<char, 16> text{};
    auto const put = [&](std::size_t place, int number)
    {
        text[place] = static_cast<char>('0' + number / 10);
        text[place + 1] = static_cast<char>('0' + number % 10);
    };
    put(0, m_timeSeconds / 3600);
    put(3, m_timeSeconds / 60 % 60);
    put(6, m_timeSeconds % 60);
    text[2] = text[5] = ':';
    return {text.data(), 8};
}

std::string CQuote::GetStatus() const
{
    return kStatusNames[m_status];
}

void CQuote::ChangeLast(Random& random)
{
    m_last.store(random.Price(), std::memory_order_relaxed);
    NotifyUpdate(kLast);
}

void CQuote::ChangeAnyNumber(Random& random)
{
    static constexpr std::array kNumbers = {kBid, kAsk, kLast, kVolume, kChangePercent, kBidSize, kAskSize};
    Fid const fid = kNumbers[random.Below(kNumbers.size())];
    switch (fid)
    {
    case kBid:
        m_bid.store(random.Price(), std::memory_order_relaxed);
        break;
    case kAsk:
        m_ask.store(random.Price(), std::memory_order_relaxed);
        break;
    case kLast:
        m_last.store(random.Price(), std::memory_order_relaxed);
        break;
    case kVolume:
        m_volume.store(static_cast<std::int64_t>(random.Next() >> 24U), std::memory_order_relaxed);
        break;
    case kChangePercent:
        m_changePercent.store(DrawChange(random), std::memory_order_relaxed);
        break;
    case kBidSize:
        m_bidSize.store(DrawSize(random), std::memory_order_relaxed);
        break;
    default:
        m_askSize.store(DrawSize(random), std::memory_order_relaxed);
        break;
    }
    NotifyUpdate(fid);
}

bool QuoteFilter::IsFiltered(CGrid* /*grid*/, CGridItem* /*item*/, CDataObject* object)
{
    return !IsShown(*static_cast<CQuote const*>(object));
}

void CQuoteFrame::StartHeartbeat()
{
    m_worstGapUs = 0;
    m_lastBeatUs = Platform::Clock::Microseconds();
    SetTimer(kHeartbeat, kHeartbeatMs);
}

double CQuoteFrame::StopHeartbeat()
{
    KillTimer(kHeartbeat);
    std::int64_t const gapUs = std::max(m_worstGapUs, Platform::Clock::Microseconds() - m_lastBeatUs);
    return std::max(0.0, static_cast<double>(gapUs) / 1e3 - kHeartbeatMs);
}

LRESULT CQuoteFrame::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NOTIFY)
    {
        m_updatesHeard += reinterpret_cast<NMHDR const*>(lParam)->code == ItemUpdated ? 1 : 0;
        return 0;
    }
    if (message == WM_TIMER && wParam == kHeartbeat)
    {
        std::int64_t const nowUs = Platform::Clock::Microseconds();
        m_worstGapUs = std::max(m_worstGapUs, nowUs - m_lastBeatUs);
        m_lastBeatUs = nowUs;
        return 0;
    }
    return CFrameWnd::WindowProc(message, wParam, lParam);
}

QuoteRows::QuoteRows(std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
    {
        m_quotes.emplace_back(i, m_random);
    }
    CRect const bounds(CPoint(0, 0), CSize(kViewWidth, kViewHeight));
    m_frame.Create(nullptr, "Quotes", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, bounds);
    m_grid.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL, CRect(), &m_frame, 1);
    m_frame.SetClientWindow(&m_grid);
    m_grid.SetFont(GUI::CPreferences::GetFont());
    auto* header = new CHeader; // deletes itself with the grid
    for (long fid = 0; fid < CQuote::kFieldCount; ++fid)
    {
        constexpr int kWidth = (kViewWidth - 40) / CQuote::kFieldCount; // leaves room for the scroll bar
        header->Add(new CColumn(fid, CQuote::Fields()->GetField(fid)->GetName(), kWidth, CColumn::AlignAuto, false, -1,
                                -1, nullptr, nullptr, nullptr, ""));
    }
    m_grid.SetHeader(header);
    m_frame.ShowWindow(SW_SHOW);
    Platform::ProcessPending();
}

QuoteRows::~QuoteRows()
{
    m_frame.DestroyWindow();
    Platform::ProcessPending();
}

void QuoteRows::AddAll()
{
    LoopTurns turns;
    for (CQuote& quote : m_quotes)
    {
        m_grid.Add(&quote, ScrollableRoot, LastPosition);
        turns.AfterChange();
    }
}

void QuoteRows::Sort(std::initializer_list<CSortInfo> levels)
{
    m_levels = levels;
    m_grid.ResetSort(false);
    int level = 0;
    for (CSortInfo const& info : levels)
    {
        bool const isLast = level + 1 == static_cast<int>(levels.size());
        m_grid.SetSort(level++, info, isLast);
    }
    Platform::ProcessPending();
}

void QuoteRows::ReplaceFirstLevel(CSortInfo const& info)
{
    m_levels.front() = info;
    m_grid.SetSort(0, info, true);
    Platform::ProcessPending();
}

void QuoteRows::SetFilter(QuoteFilter* filter)
{
    m_filter = filter;
    m_grid.SetFilter(filter);
    Platform::ProcessPending();
}

std::size_t QuoteRows::ShownCount() const
{
    auto const isShown = [this](CQuote const& quote) { return m_filter == nullptr || m_filter->IsShown(quote); };
    return static_cast<std::size_t>(std::count_if(m_quotes.begin(), m_quotes.end(), isShown));
}

std::string QuoteRows::WhatIsWrong()
{
    Inspector inspector(m_levels, m_filter);
    m_grid.ForEachVisible(inspector, nullptr);
    std::size_t const expected = ShownCount();
    if (inspector.count != expected || m_grid.GetRowCount(ScrollableContext) != expected)
    {
        return "the grid shows " + std::to_string(inspector.count) + " rows of " + std::to_string(expected);
    }
    if (!inspector.isInOrder)
    {
        return "the rows are not in order";
    }
    return inspector.isFiltered ? "" : "a row is shown that the filter hides";
}

LoopTurns::LoopTurns() : m_nextTurnSeconds(ProcessorSeconds() + kTurnSeconds) {}

void LoopTurns::Look()
{
    if (ProcessorSeconds() >= m_nextTurnSeconds)
    {
        Platform::ProcessPending();
        m_nextTurnSeconds = ProcessorSeconds() + kTurnSeconds;
    }
}

} // namespace Ostrel::Benchmarks
