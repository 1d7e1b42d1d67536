// A format by its name, with settings and a text to parse: the first byte chooses the class and, for the dates, the
// preferences; the second is the number of bytes of settings, and the text is what follows.
#include <memory>

#include <ostrel/Common.h>

#include "Target.h"

using namespace Ostrel::Common;

namespace
{

constexpr char const* kClasses[] = {"CBoolFormat",
                                    "CCharFormat",
                                    "CDefaultMfcStringFormat",
                                    "CDefaultStlStringFormat",
                                    "CDoubleFormat",
                                    "CEmptyFormat",
                                    "CFloatFormat",
                                    "CInt64DateFormat",
                                    "CInt64Format",
                                    "CLongDateFormat",
                                    "CLongEnumFormat",
                                    "CLongFormat",
                                    "CLongMsecTimeFormat",
                                    "CShortFormat",
                                    "CUCharFormat",
                                    "CULongFormat",
                                    "CUShortFormat"};

/// Orders and separators of dates.
void SetPreferences(unsigned choice)
{
    CPreferences::SetDateType(static_cast<CPreferences::DateType>(choice % 3));
    bool const isUsual = choice / 3 % 2 == 0;
    CPreferences::SetDateSeparator(isUsual ? "/" : "-");
    CPreferences::SetTimeSeparator(isUsual ? ":" : " h");
    CPreferences::SetMillisecondSeparator(isUsual ? "." : "");
}

void RestoreSettings(CFormat& format, std::span<std::uint8_t const> settings)
{
    std::string const before = Fuzz::Stored(format);
    try
    {
        CSerializer serializer = Fuzz::Restoring(settings);
        serializer >> format;
    }
    catch (CommonException const&)
    {
        Fuzz::Require(Fuzz::Stored(format) == before, "a failed restore keeps the settings");
    }
}

void ParseAndFormat(CFormat const& format, std::string const& text, std::size_t inputSize)
{
    CValue value;
    CValue sameValue;
    bool const isRead = format.ParseStl(text, value);
    Fuzz::Require(format.ParseMfc(text.c_str(), sameValue) || !isRead || text.find('\0') != std::string::npos,
                  "both text classes read alike");
    std::string const shown = format.FormatStl(value);
    Fuzz::Require(shown.size() <= 4 * inputSize + 1000, "a text is not much longer than the input");
    CValue again;
    format.ParseStl(shown, again);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    if (size < 2)
    {
        return 0;
    }
    std::string const name = std::string("Common::") + kClasses[data[0] % std::size(kClasses)];
    std::unique_ptr<CFormat> const format(CFormatFactory::Create(name));
    Fuzz::Require(format != nullptr, "the class is known");
    SetPreferences(data[0] / static_cast<unsigned>(std::size(kClasses)));
    std::span<std::uint8_t const> const rest(data + 2, size - 2);
    std::size_t const settingsSize = std::min<std::size_t>(data[1], rest.size());
    RestoreSettings(*format, rest.first(settingsSize));
    std::string const bytes = Fuzz::Stored(*format);
    std::unique_ptr<CFormat> const copy(CFormatFactory::Create(name));
    Fuzz::Restore(bytes, *copy);
    Fuzz::Require(Fuzz::Stored(*copy) == bytes, "settings survive a round trip");

    auto const text = rest.subspan(settingsSize);
    ParseAndFormat(*format, {text.begin(), text.end()}, size);
    return 0;
}
