// The rows that the benchmarks show: quotes of twelve fields, and a window of 1600 x 900 with a grid that shows all of
// them. Prices are drawn evenly from [10, 1000), so that a new one moves its row a third of a sorted list on average
// and lies on either side of 505 with the same chance.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <deque>
#include <initializer_list>
#include <string>
#include <vector>

#include <ostrel/GUI.h>

namespace Ostrel::Benchmarks
{

/// A small, quick generator (xorshift64*): a worker has its own.
class Random
{
public:
    explicit Random(std::uint64_t seed = 42) noexcept : m_state(seed * 0x9E3779B97F4A7C15ULL + 1) {}

    std::uint64_t Next() noexcept
    {
        m_state ^= m_state >> 12U;
        m_state ^= m_state << 25U;
        m_state ^= m_state >> 27U;
        return m_state * 0x2545F4914F6CDD1DULL;
    }
    std::size_t Below(std::size_t limit) noexcept { return Next() % limit; }
    double Price() noexcept { return 10.0 + 990.0 * (static_cast<double>(Next() >> 11U) * 0x1p-53); }

private:
    std::uint64_t m_state;
};

/// The numbers may be changed on any thread while the grid's thread reads them; the rest never changes.
class CQuote : public Common::CDataObject
{
public:
    enum Fid : long
    {
        kSymbol,
        kBid,
        kAsk,
        kLast,
        kVolume,
        kChangePercent,
        kTime,
        kBidSize,
        kAskSize,
        kIsHalted,
        kStatus,
        kNote,
        kFieldCount
    };

    CQuote(std::size_t number, Random& random);
    ~CQuote() override;

    static Common::CFieldMap const* Fields();
    Common::CFieldMap const* GetFieldMap() const override { return Fields(); }

    [[nodiscard]] double Last() const noexcept { return m_last.load(std::memory_order_relaxed); }
    [[nodiscard]] double ChangePercent() const noexcept { return m_changePercent.load(std::memory_order_relaxed); }

    /// Draw a new value and notify.
    void ChangeLast(Random& random);
    void ChangeAnyNumber(Random& random);

private:
    [[nodiscard]] std::string GetSymbol() const { return m_symbol; }
    [[nodiscard]] double GetBid() const { return m_bid.load(std::memory_order_relaxed); }
    [[nodiscard]] double GetAsk() const { return m_ask.load(std::memory_order_relaxed); }
    [[nodiscard]] double GetLast() const { return Last(); }
    [[nodiscard]] __int64 GetVolume() const { return m_volume.load(std::memory_order_relaxed); }
    [[nodiscard]] double GetChangePercent() const { return ChangePercent(); }
    [[nodiscard]] std::string GetTime() const;
    [[nodiscard]] long GetBidSize() const { return m_bidSize.load(std::memory_order_relaxed); }
    [[nodiscard]] long GetAskSize() const { return m_askSize.load(std::memory_order_relaxed); }
    [[nodiscard]] bool IsHalted() const { return m_isHalted; }
    [[nodiscard]] std::string GetStatus() const;
    [[nodiscard]] std::string GetNote() const { return m_note; }

    std::atomic<double> m_bid;
    std::atomic<double> m_ask;
    std::atomic<double> m_last;
    std::atomic<double> m_changePercent;
    std::atomic<std::int64_t> m_volume;
    std::atomic<std::int32_t> m_bidSize;
    std::atomic<std::int32_t> m_askSize;
    std::int32_t m_timeSeconds;
    std::uint8_t m_status;
    bool m_isHalted;
    std::string m_symbol;
    std::string m_note;
};

/// Hides the quotes that fail a test which is cheap to make. Belongs to whoever sets it.
class QuoteFilter : public GUI::IGridFilter
{
public:
    enum class Shows
    {
        LastAbove505,
        PositiveChange ///< independent of the other: half of all rows are on the other side
    };

    explicit QuoteFilter(Shows shows) : m_shows(shows) {}

    [[nodiscard]] bool AutoDelete() const override { return false; }
    bool IsFiltered(GUI::CGrid* grid, GUI::CGridItem* item, Common::CDataObject* object) override;
    [[nodiscard]] bool IsShown(CQuote const& quote) const
    {
        return m_shows == Shows::LastAbove505 ? quote.Last() > 505 : quote.ChangePercent() > 0;
    }

private:
    Shows m_shows;
};

/// The parent of the grid: counts what it is told.
class CQuoteFrame : public CFrameWnd
{
public:
    CQuoteFrame() { SetAutoDelete(false); }

    [[nodiscard]] std::int64_t UpdatesHeard() const noexcept { return m_updatesHeard; }
    /// Lets a timer tick and measures how much later than due a tick came, the worst since the start.
    void StartHeartbeat();
    double StopHeartbeat();

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    static constexpr UINT_PTR kHeartbeat = 1;

    std::int64_t m_updatesHeard = 0;
    std::int64_t m_lastBeatUs = 0;
    std::int64_t m_worstGapUs = 0;
};

/// The quotes and the window that shows them. Everything happens on the thread that makes it.
class QuoteRows
{
public:
    explicit QuoteRows(std::size_t count);
    QuoteRows(QuoteRows const&) = delete;
    QuoteRows& operator=(QuoteRows const&) = delete;
    ~QuoteRows();

    [[nodiscard]] std::size_t Count() const noexcept { return m_quotes.size(); }
    CQuote& Quote(std::size_t number) { return m_quotes[number]; }
    Random& Numbers() noexcept { return m_random; }
    GUI::CGrid& Grid() noexcept { return m_grid; }
    CQuoteFrame& Frame() noexcept { return m_frame; }

    /// Adds a row for each quote, one by one, with turns of the loop between them.
    void AddAll();
    /// Sorts, once for each level: every change of a level takes effect at once.
    void Sort(std::initializer_list<GUI::CSortInfo> levels);
    /// Replaces the first level: one sort by all levels.
    void ReplaceFirstLevel(GUI::CSortInfo const& info);
    void SortByLast() { Sort({GUI::CSortInfo(CQuote::kLast, false)}); }
    /// Null shows everything.
    void SetFilter(QuoteFilter* filter);

    /// Whether the grid shows the right rows, in the order of the sort: empty if so, else what is wrong.
    [[nodiscard]] std::string WhatIsWrong();

private:
    [[nodiscard]] std::size_t ShownCount() const;

    Random m_random;
    std::deque<CQuote> m_quotes; // outlive the grid
    CQuoteFrame m_frame;
    GUI::CGrid m_grid;
    QuoteFilter* m_filter = nullptr;
    std::vector<GUI::CSortInfo> m_levels;
};

/// Gives the loop its turn, in which it may paint, whenever 1/60 s of this thread's processor time has gone by.
class LoopTurns
{
public:
    LoopTurns();

    void AfterChange()
    {
        if (++m_changes % kChangesALook == 0)
        {
            Look();
        }
    }

private:
    static constexpr unsigned kChangesALook = 64; // reading that clock is a system call

    void Look();

    unsigned m_changes = 0;
    double m_nextTurnSeconds;
};

} // namespace Ostrel::Benchmarks
