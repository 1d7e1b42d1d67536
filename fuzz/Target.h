// What every target has: the entry that fuzzers and Replay.cpp call, and a check that ends the process.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>

#include <ostrel/common/value/Serializer.h>

/// Feeds the target one input. Returns 0.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

namespace Fuzz
{

inline void Require(bool holds, char const* what)
{
    if (!holds)
    {
        std::fprintf(stderr, "broken: %s\n", what);
        std::abort();
    }
}

inline Ostrel::Common::CSerializer Restoring(std::span<std::uint8_t const> bytes)
{
    using Ostrel::Common::CSerializer;
    CSerializer serializer(CSerializer::ModeRestore);
    serializer.LoadFromBuffer(bytes.data(), static_cast<int>(bytes.size()));
    return serializer;
}

/// What storing a thing writes.
template <class T>
std::string Stored(T const& thing)
{
    using Ostrel::Common::CSerializer;
    CSerializer serializer(CSerializer::ModeStore);
    serializer << thing;
    std::string bytes(static_cast<std::size_t>(serializer.GetSavingSize()), '\0');
    serializer.SaveToBuffer(bytes.data());
    return bytes;
}

/// Restores what Stored gave: it must be readable to its end.
template <class T>
void Restore(std::string const& bytes, T& thing)
{
    auto serializer = Restoring({reinterpret_cast<std::uint8_t const*>(bytes.data()), bytes.size()});
    serializer >> thing;
}

} // namespace Fuzz
