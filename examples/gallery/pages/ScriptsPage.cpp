// Texts in many scripts, whole and cut: an ellipsis never halves a character.
#include <array>

#include "../Pages.h"

namespace Gallery
{

using namespace Ostrel::Common;
using namespace Ostrel::GUI;

namespace
{

class CPhrase : public CDataObject
{
public:
    enum Fid : long
    {
        kLanguage,
        kText,
        kAmount
    };

    CPhrase(char const* language, char const* text, double amount)
        : m_language(language), m_text(text), m_amount(amount)
    {}

    [[nodiscard]] std::string GetLanguage() const { return m_language; }
    [[nodiscard]] std::string GetText() const { return m_text; }
    [[nodiscard]] double GetAmount() const { return m_amount; }

    static CFieldMap const& Fields()
    {
        static auto const fields =
            CFieldMapBuilder<CPhrase>()
                .Field(kLanguage, "Script", &CPhrase::GetLanguage)
                .Field(kText, "Text", &CPhrase::GetText)
                .Field(kAmount, "Amount", &CPhrase::GetAmount, nullptr, new CDoubleFormat(2, true))
                .Build();
        return *fields;
    }
    CFieldMap const* GetFieldMap() const override { return &Fields(); }

private:
    char const* m_language;
    char const* m_text;
    double m_amount;
};

class CScriptsPage : public CPage
{
    void Build() override
    {
        AddPhrases("Left", CColumn::AlignLeft, 193);
        AddPhrases("Right", CColumn::AlignRight, 193);
        AddPhrases("Centred", CColumn::AlignCenter, 193);
        AddPhrases("Too narrow", CColumn::AlignLeft, 92);
    }

    void AddPhrases(std::string caption, CColumn::Alignment alignment, int width)
    {
        CGrid& grid = AddGrid(std::move(caption), CPhrase::Fields(),
                              {{CPhrase::kLanguage, 82},
                               {CPhrase::kText, width, alignment},
                               {CPhrase::kAmount, 100, CColumn::AlignRight}});
        grid.GetAppearance().EnableVerticalLines(true);
        for (CPhrase& phrase : m_phrases)
        {
            grid.Add(&phrase, ScrollableRoot, LastPosition);
        }
    }

    std::array<CPhrase, 9> m_phrases{{{"Latin", "Zażółć gęślą jaźń", 1111.11},
                                      {"Greek", "Καλημέρα κόσμε", 2048},
                                      {"Cyrillic", "Привет, мир", 31.4},
                                      {"Han", "你好，世界，早上好", 888888.88},
                                      {"Kana", "こんにちは、カタカナ", 27.18},
                                      {"Arabic", "مرحبا بالعالم", 0.5},
                                      {"Combined", "e\u0301 n\u0303 o\u0308 a\u030A y\u0302 u\u0308\u0304", 1.01},
                                      {"Emoji", "😀 😎 ☀ ☂ ♥ ✓ ✈", 123456.7},
                                      {"Signs", "Größe ≤ 5 € → ½ × ∑ ∞", 7.77}}};
};

} // namespace

std::unique_ptr<CPage> MakeScriptsPage()
{
    return std::make_unique<CScriptsPage>();
}

} // namespace Gallery
