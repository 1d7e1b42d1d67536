// Stable sorts that stay in bounds whatever the comparison answers, also when it is no strict weak order.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

namespace Ostrel::GUI::Detail
{

/// Sorts [begin, end) by insertion; isBefore(a, b) is asked for elements of the range only.
template <class Iterator, class IsBefore>
void InsertionSort(Iterator begin, Iterator end, IsBefore const& isBefore)
{
    for (Iterator next = begin; next != end; ++next)
    {
        auto const value = *next;
        Iterator hole = next;
        for (; hole != begin && isBefore(value, *(hole - 1)); --hole)
        {
            *hole = *(hole - 1);
        }
        *hole = value;
    }
}

/// Merges two sorted neighbours into `out`.
template <class Iterator, class IsBefore>
void MergeRuns(Iterator left, Iterator middle, Iterator end, Iterator out, IsBefore const& isBefore)
{
    Iterator right = middle;
    if (left != middle && right != end && !isBefore(*right, *(middle - 1)))
    {
        std::copy(left, end, out);
        return;
    }
    while (left != middle && right != end)
    {
        bool const takesRight = isBefore(*right, *left);
        *out++ = takesRight ? *right : *left;
        right += takesRight ? 1 : 0;
        left += takesRight ? 0 : 1;
    }
    std::copy(right, end, std::copy(left, middle, out));
}

/// Elements are small and trivially copied. O(n log n) with a second list of the same size.
template <class T, class IsBefore>
void MergeSort(std::vector<T>& elements, IsBefore const& isBefore)
{
    constexpr std::size_t kRun = 16;
    std::size_t const size = elements.size();
    for (std::size_t from = 0; from < size; from += kRun)
    {
        InsertionSort(elements.data() + from, elements.data() + std::min(from + kRun, size), isBefore);
    }
    std::vector<T> other(size > kRun ? size : 0);
    for (std::size_t run = kRun; run < size; run *= 2)
    {
        for (std::size_t from = 0; from < size; from += 2 * run)
        {
            T* const begin = elements.data();
            MergeRuns(begin + from, begin + std::min(from + run, size), begin + std::min(from + 2 * run, size),
                      other.data() + from, isBefore);
        }
        elements.swap(other);
    }
}

/// Sorts by a 64-bit unsigned member. O(n), with a second list of the same size; small lists are merged.
template <class T>
void RadixSort(std::vector<T>& elements, std::uint64_t T::*key)
{
    constexpr unsigned kDigitBits = 11;
    constexpr unsigned kDigits = (64 + kDigitBits - 1) / kDigitBits;
    constexpr std::size_t kBuckets = std::size_t{1} << kDigitBits;
    constexpr std::size_t kWorthIt = 4096;
    if (elements.size() < kWorthIt)
    {
        MergeSort(elements, [key](T const& a, T const& b) { return a.*key < b.*key; });
        return;
    }
    auto const digitOf = [key](T const& element, unsigned digit)
    { return static_cast<std::size_t>(element.*key >> (digit * kDigitBits)) & (kBuckets - 1); };

    std::vector<std::array<std::uint32_t, kBuckets>> starts(kDigits);
    for (T const& element : elements)
    {
        for (unsigned digit = 0; digit < kDigits; ++digit)
        {
            ++starts[digit][digitOf(element, digit)];
        }
    }
    std::vector<T> other(elements.size());
    for (unsigned digit = 0; digit < kDigits; ++digit)
    {
        std::array<std::uint32_t, kBuckets>& start = starts[digit];
        if (start[digitOf(elements.front(), digit)] == elements.size())
        {
            continue; // all alike
        }
        std::uint32_t sum = 0;
        for (std::uint32_t& bucket : start)
        {
            sum += std::exchange(bucket, sum);
        }
        for (T const& element : elements)
        {
            other[start[digitOf(element, digit)]++] = element;
        }
        elements.swap(other);
    }
}

} // namespace Ostrel::GUI::Detail
