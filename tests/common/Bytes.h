// Streams as readable text: "01 07 05 00 00 00".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <ostrel/common/value/Serializer.h>

namespace Ostrel::Common::testing
{

inline std::string ToHexText(CSerializer const& serializer)
{
    std::vector<unsigned char> bytes(static_cast<std::size_t>(serializer.GetSavingSize()));
    serializer.SaveToBuffer(bytes.data());
    std::string text;
    for (unsigned char const byte : bytes)
    {
        text += text.empty() ? "" : " ";
        text += "0123456789ABCDEF"[byte >> 4U];
        text += "0123456789ABCDEF"[byte & 15U];
    }
    return text;
}

/// A restoring serializer that holds the bytes of such a text, or only the first `count` of them.
inline CSerializer FromHexText(std::string_view text, std::size_t count = std::string_view::npos)
{
    std::vector<char> bytes;
    for (std::size_t i = 0; i + 1 < text.size() && bytes.size() < count; i += 3)
    {
        bytes.push_back(static_cast<char>(std::stoi(std::string(text.substr(i, 2)), nullptr, 16)));
    }
    CSerializer serializer(CSerializer::ModeRestore);
    serializer.LoadFromBuffer(bytes.data(), static_cast<int>(bytes.size()));
    return serializer;
}

/// How many bytes such a text stands for.
inline std::size_t ByteCount(std::string_view text)
{
    return (text.size() + 1) / 3;
}

/// What storing a value, an object or a format writes.
template <class T>
std::string StoredBytes(T const& stored)
{
    CSerializer serializer(CSerializer::ModeStore);
    serializer << stored;
    return ToHexText(serializer);
}

} // namespace Ostrel::Common::testing
