#include <ostrel/common/format/BoolFormat.h>
#include <ostrel/common/format/CharFormat.h>
#include <ostrel/common/format/DefaultMfcStringFormat.h>
#include <ostrel/common/format/DefaultStlStringFormat.h>
#include <ostrel/common/format/DoubleFormat.h>
#include <ostrel/common/format/EmptyFormat.h>
#include <ostrel/common/format/FloatFormat.h>
#include <ostrel/common/format/FormatFactory.h>
#include <ostrel/common/format/Int64DateFormat.h>
#include <ostrel/common/format/Int64Format.h>
#include <ostrel/common/format/LongDateFormat.h>
#include <ostrel/common/format/LongEnumFormat.h>
#include <ostrel/common/format/LongFormat.h>
#include <ostrel/common/format/LongMsecTimeFormat.h>
#include <ostrel/common/format/ShortFormat.h>
#include <ostrel/common/format/UCharFormat.h>
#include <ostrel/common/format/ULongFormat.h>
#include <ostrel/common/format/UShortFormat.h>
#include <ostrel/common/thread/detail/CreatorRegistry.h>

namespace Ostrel::Common
{

namespace
{

using Registry = detail::CreatorRegistry<CFormat>;

template <class... Formats>
Registry::Creators CreatorsOf()
{
    return {{Formats::GetFormatClassName(), &Formats::CreateFormat}...};
}

/// The registry knows the library's formats from its birth. Were each format to add itself from a static object of its
/// own source file, a program linked with the static library would miss those whose files nothing else refers to.
/// Never destroyed, as static objects of applications may use it to the very end.
Registry& TheRegistry()
{
    static Registry& registry = *new Registry(
        CreatorsOf<CBoolFormat, CCharFormat, CUCharFormat, CShortFormat, CUShortFormat, CLongFormat, CULongFormat,
                   CInt64Format, CFloatFormat, CDoubleFormat, CDefaultStlStringFormat, CDefaultMfcStringFormat,
                   CEmptyFormat, CLongDateFormat, CInt64DateFormat, CLongMsecTimeFormat, CLongEnumFormat>());
    return registry;
}

} // namespace

bool CFormatFactory::RegisterFormat(std::string const& name, CFormat* (*creator)())
{
    return InternalRegisterFormat(name, creator);
}

bool CFormatFactory::InternalRegisterFormat(std::string const& name, CFormat* (*creator)())
{
    return TheRegistry().Add(name, creator);
}

CFormat* CFormatFactory::Create(std::string const& name)
{
    return TheRegistry().Create(name);
}

} // namespace Ostrel::Common
