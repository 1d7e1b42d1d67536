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

std::size_t ReadKind(CSerializer& serializer, unsigned kind)
{
    switch (kind % 8)
    {
    case 0:
        return ReadOne<std::string>(serializer);
    case 1:
        return ReadOne<CString>(serializer);
    case 2:
        return ReadOne<bool>(serializer);
    case 3:
        return ReadOne<short>(serializer);
    case 4:
        return ReadOne<long>(serializer);
    case 5:
        return ReadOne<double>(serializer);
    case 6:
        return ReadOne<__int64>(serializer);
    default:
        return ReadOne<unsigned char>(serializer);
    }
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
    Fuzz::Require(textBytes <= size, "texts are not longer than the input");
    return 0;
}
