#include <memory>

#include <gtest/gtest.h>

#include <ostrel/Common.h>

#include "Quote.h"

namespace Ostrel::Common
{
namespace
{

using testing::CQuote;
using testing::CTradedQuote;

CField* NewField(long fid, char const* name)
{
    return new CField(fid, name, TypeLong);
}

TEST(FieldMapTest, TheFirstFieldOfANumberStays)
{
    CFieldMap map;
    CField* const first = NewField(5, "first");
    EXPECT_TRUE(map.AddField(5, first));
    CField second(5, "second", TypeLong);
    EXPECT_FALSE(map.AddField(5, &second)); // ours still
    EXPECT_FALSE(map.AddField(6, nullptr));
    EXPECT_EQ(map.GetField(5), first);
}

TEST(FieldMapTest, TheNearestDeclarationWins)
{
    CFieldMap grandparent;
    CFieldMap parent(&grandparent);
    CFieldMap map(&parent);
    for (bool const indexed : {false, true})
    {
        if (!indexed)
        {
            grandparent.AddField(9, NewField(9, "Old"));
            parent.AddField(5, NewField(5, "Price"));
            map.AddField(5, NewField(5, "Bid"));
        }
        else
        {
            grandparent.InitHash();
            parent.InitHash();
            map.InitHash();
        }
        EXPECT_EQ(map.GetField(5)->GetName(), "Bid");
        EXPECT_EQ(map.GetField(9)->GetName(), "Old");
        EXPECT_EQ(map.GetField(6), nullptr);
        EXPECT_EQ(parent.GetField(5)->GetName(), "Price");
    }
    std::set<CField*> fields;
    map.GetAllFields(fields);
    EXPECT_EQ(fields, std::set<CField*>{map.GetField(5)});
    EXPECT_EQ(map.GetParentMap(), &parent);
}

TEST(FieldMapTest, TheIndexIsBuiltOnceAndNotOfAnEmptyMap)
{
    CFieldMap map;
    map.InitHash();
    map.AddField(1, NewField(1, "One"));
    EXPECT_NE(map.GetField(1), nullptr);
    map.InitHash();
    map.AddField(2, NewField(2, "Late"));
    map.InitHash();
    EXPECT_NE(map.GetField(1), nullptr);
    EXPECT_EQ(map.GetField(2), nullptr);
    std::set<CField*> fields;
    map.GetAllFields(fields);
    EXPECT_EQ(fields.size(), 2U);
}

TEST(FieldMapTest, TheIndexFindsEveryNumberAndNoOther)
{
    std::vector<std::unique_ptr<CField>> fields;
    std::vector<detail::FieldIndex::Entry> entries;
    for (int const fid : {-2147483647 - 1, -7, -1, 0, 1, 3, 7, 14, 21, 1000000007, 2147483647})
    {
        fields.push_back(std::make_unique<CField>(fid, "", TypeLong));
        entries.emplace_back(fid, fields.back().get());
        detail::FieldIndex const index(entries);
        for (auto const& [present, field] : entries)
        {
            EXPECT_EQ(index.Find(present), field);
        }
        for (int const absent : {-2147483647, -8, -2, 2, 4, 28, 1000000006, 2147483646})
        {
            EXPECT_EQ(index.Find(absent), nullptr) << absent << " of " << entries.size();
            EXPECT_LT(index.BucketOf(absent), entries.size());
        }
    }
    detail::FieldIndex const three({entries[3], entries[4], entries[5]});
    EXPECT_EQ(three.BucketOf(7), 1U);
    EXPECT_EQ(three.BucketOf(2147483647), 2147483647U % 3);
    EXPECT_EQ(three.BucketOf(-1), 2U);
    EXPECT_EQ(three.BucketOf(-3), 0U);
}

/// Counts how many of it are alive.
class CCountedFormat final : public CFormat
{
public:
    CCountedFormat() : CFormat(TypeLong) { ++s_alive; }
    CCountedFormat(CCountedFormat const& other) : CFormat(other) { ++s_alive; }
    ~CCountedFormat() override { --s_alive; }
    [[nodiscard]] CFormat* Clone() const override { return new CCountedFormat(*this); }

    static inline int s_alive = 0;
};

TEST(FieldMapTest, FieldsOwnTheirFormats)
{
    {
        CFieldMap map;
        auto* const field = new CField(1, nullptr, TypeLong, new CCountedFormat);
        EXPECT_EQ(field->GetName(), "");
        map.AddField(1, field);
        map.AddField(2, field->Clone());
        EXPECT_EQ(CCountedFormat::s_alive, 2);
        EXPECT_NE(map.GetField(2)->GetFormat(), field->GetFormat());
    }
    EXPECT_EQ(CCountedFormat::s_alive, 0);
}

TEST(FieldMapTest, AFieldGivesItsAccessorsByTheirTypeOnly)
{
    auto const getter = static_cast<CField::GetMethod<double>>(&CQuote::GetBid);
    CField const field(3, "0", getter, nullptr, nullptr, "GetBid", "0");
    EXPECT_EQ(field.GetType(), TypeDouble);
    EXPECT_TRUE(field.HasGetMethod());
    EXPECT_FALSE(field.HasSetMethod());
    EXPECT_EQ(field.PfnGetDouble(), getter);
    EXPECT_EQ(field.PfnGetLong(), nullptr);
    EXPECT_EQ(field.PfnSetDouble(), nullptr);
    EXPECT_EQ(field.GetName(), "0"); // a display name is taken as it is, the name of an accessor is not
    EXPECT_EQ(field.GetPfnGetName(), "GetBid");
    EXPECT_EQ(field.GetPfnSetName(), "");

    CField const copy(field);
    EXPECT_EQ(copy.PfnGetDouble(), getter);
    CField const none;
    EXPECT_EQ(none.GetFid(), -2);
    EXPECT_EQ(none.GetType(), TypeEmpty);
}

// Accessors that the builder must refuse.
class CBadQuote : public CQuote
{
public:
    [[nodiscard]] int GetInt() const { return 0; }
    [[nodiscard]] CQuote* GetQuote() const { return nullptr; }
    [[nodiscard]] std::string const& GetReference() const { return CValue::GetEmptyStlString(); }
    [[nodiscard]] double GetNonConst() { return 0; }
    void SetTextByValue(std::string) {}
    void SetDoubleByReference(double const&) {}
    [[nodiscard]] bool SetAndTell(double) { return true; }
    void SetOther(long) {}
};

template <class Getter, class Setter = std::nullptr_t>
constexpr bool kAccepted = requires(CFieldMapBuilder<CBadQuote> builder, Getter getter, Setter setter)
{
    builder.Field(1, "", getter, setter);
};

static_assert(kAccepted<decltype(&CQuote::GetBid), decltype(&CQuote::SetBid)>);
static_assert(kAccepted<decltype(&CQuote::GetSize), decltype(&CQuote::SetSize)>, "noexcept accessors");
static_assert(kAccepted<std::nullptr_t, decltype(&CQuote::SetName)>);
static_assert(!kAccepted<std::nullptr_t, std::nullptr_t>);
static_assert(!kAccepted<decltype(&CBadQuote::GetInt)>);
static_assert(!kAccepted<decltype(&CBadQuote::GetQuote)>);
static_assert(!kAccepted<decltype(&CBadQuote::GetReference)>);
static_assert(!kAccepted<decltype(&CBadQuote::GetNonConst)>);
static_assert(!kAccepted<std::nullptr_t, decltype(&CBadQuote::SetTextByValue)>);
static_assert(!kAccepted<std::nullptr_t, decltype(&CBadQuote::SetDoubleByReference)>);
static_assert(!kAccepted<std::nullptr_t, decltype(&CBadQuote::SetAndTell)>);
static_assert(!kAccepted<decltype(&CQuote::GetBid), decltype(&CBadQuote::SetOther)>, "two types");

/// An accessor of a class beside CDataObject cannot be called through one.
struct Tagged
{
    [[nodiscard]] long GetTag() const { return 0; }
};
class CTaggedQuote : public CQuote, public Tagged
{};
static_assert(!kAccepted<decltype(&CTaggedQuote::GetTag)>);

TEST(FieldMapBuilderTest, DeclaresTypesNamesFormatsAndParents)
{
    CField const* const bid = CQuote::Map()->GetField(CQuote::kBid);
    EXPECT_EQ(bid->GetType(), TypeDouble);
    EXPECT_EQ(bid->GetPfnGetName(), "GetBid");
    EXPECT_EQ(bid->GetPfnSetName(), "SetBid");
    EXPECT_NE(bid->GetFormat(), nullptr);
    EXPECT_EQ(CQuote::Map()->GetField(CQuote::kLocked)->GetPfnSetName(), "");
    EXPECT_EQ(CTradedQuote::Map()->GetField(CQuote::kBid)->GetName(), "Best bid");
    EXPECT_EQ(CTradedQuote::Map()->GetField(CQuote::kName), CQuote::Map()->GetField(CQuote::kName));
}

} // namespace
} // namespace Ostrel::Common
