// Reads primitives as the input's own bytes order them.
#include "Target.h"

namespace
{

using Ostrel::Common::CSerializer;

template <class T>
std::size_t ReadOne(CSerializer& serializer)
{
    T value{};
    serializer >> value;
    if constexpr (requires { value.size(); })
    {
        return value.size();
    }
    else
    {
        return 0;
    }
}

/// As many bytes as the kind says, without a type.
std::size_t ReadRaw(CSerializer& serializer, unsigned kind)
{
    char bytes[16];
    serializer.Read(bytes, static_cast<int>(kind % 18) - 2); // some sizes are refused, some are not there
    return 0;
}

std::size_t ReadKind(CSerializer& serializer, unsigned kind)
{
    using Reader = std::size_t (*)(CSerializer&);
    constexpr Reader kReaders[] = {&ReadOne<std::string>,  &ReadOne<CString>,        &ReadOne<bool>,
                                   &ReadOne<short>,        &ReadOne<long>,           &ReadOne<double>,
                                   &ReadOne<__int64>,      &ReadOne<unsigned char>,  &ReadOne<char>,
                                   &ReadOne<unsigned int>, &ReadOne<unsigned short>, &ReadOne<int>,
                                   &ReadOne<float>,        &ReadOne<unsigned long>};
    std::size_t const reader = kind % (std::size(kReaders) + 1);
    return reader < std::size(kReaders) ? kReaders[reader](serializer) : ReadRaw(serializer, kind / 15);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    CSerializer serializer = Fuzz::Restoring({data, size});
    std::size_t textBytes = 0;
    for (std::size_t i = 0; i < size; ++i)
    {
        try
        {
            textBytes += ReadKind(serializer, data[i]);
        }
        catch (CSerializer::SerializationException const&)
        {
            // The position has not moved; a smaller kind may still fit.
        }
    }
    serializer = CSerializer(serializer); // a copy begins at the front
    unsigned char first = 0;
    Fuzz::Require(size == 0 || (serializer >> first, first == data[0]), "a copy has the bytes");
    Fuzz::Require(textBytes <= size, "texts are not longer than the input");
    return 0;
}
