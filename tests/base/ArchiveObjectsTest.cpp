#include <memory>

#include <gtest/gtest.h>

#include "BaseTesting.h"

namespace Shapes
{

class CShape : public CObject
{
    DECLARE_SERIAL(CShape)
public:
    void Serialize(CArchive& archive) override
    {
        if (archive.IsStoring())
        {
            archive << m_id << m_next;
        }
        else
        {
            archive >> m_id >> m_next;
        }
    }

    BYTE m_id = 0;
    CShape* m_next = nullptr; ///< not owned
};
IMPLEMENT_SERIAL(CShape, CObject, 3)

class CRing : public CShape
{
    DECLARE_SERIAL(CRing)
};
IMPLEMENT_SERIAL(CRing, CShape, 1)

class CSilent : public CObject
{
    DECLARE_DYNAMIC(CSilent)
};
IMPLEMENT_DYNAMIC(CSilent, CObject)

} // namespace Shapes

namespace
{

using Shapes::CRing;
using Shapes::CShape;

ByteList ClassRecord(std::string_view name, BYTE schema)
{
    return ByteList{0xFF, 0xFF, schema, 0, static_cast<BYTE>(name.size()), 0} + BytesOf(name);
}

ByteList const kShapeRecord = ClassRecord("CShape", 3);
ByteList const kRingRecord = ClassRecord("CRing", 1);

TEST(ArchiveClassTest, WritesEachNameOnce)
{
    ByteList const bytes = Stored(
        [](CArchive& archive)
        {
            archive.WriteClass(RUNTIME_CLASS(CShape));
            archive.WriteClass(RUNTIME_CLASS(CRing));
            archive.WriteClass(RUNTIME_CLASS(CShape));
            archive.WriteClass(RUNTIME_CLASS(CRing));
        });
    EXPECT_EQ(bytes, (kShapeRecord + kRingRecord + ByteList{0x01, 0x80, 0x02, 0x80}));
    EXPECT_EQ(CauseOfLoading(bytes,
                             [](CArchive& archive)
                             {
                                 EXPECT_EQ(archive.ReadClass(), RUNTIME_CLASS(CShape));
                                 EXPECT_EQ(archive.ReadClass(RUNTIME_CLASS(CShape)), RUNTIME_CLASS(CRing));
                                 EXPECT_EQ(archive.ReadClass(), RUNTIME_CLASS(CShape));
                                 EXPECT_EQ(archive.ReadClass(), RUNTIME_CLASS(CRing));
                             }),
              kNothingThrown);
}

TEST(ArchiveClassTest, RefusedRecordsAreStillNumbered)
{
    ByteList const bytes = ClassRecord("CNobody", 1) + ClassRecord("CShape", 9) + kRingRecord +
                           ByteList{0x01, 0x80, 0x02, 0x80, 0x03, 0x80};
    CMemFile file(bytes);
    CArchive archive(&file, CArchive::load);
    auto const causeOfNext = [&] { return CauseThrownBy<CArchiveException>([&] { archive.ReadClass(); }); };
    EXPECT_EQ(causeOfNext(), CArchiveException::badClass);
    EXPECT_EQ(causeOfNext(), CArchiveException::badSchema);
    EXPECT_EQ(CauseThrownBy<CArchiveException>([&] { archive.ReadClass(RUNTIME_CLASS(Shapes::CSilent)); }),
              CArchiveException::badClass);
    EXPECT_EQ(causeOfNext(), CArchiveException::badClass);
    UINT schema = 0;
    EXPECT_EQ(archive.ReadClass(nullptr, &schema), RUNTIME_CLASS(CShape));
    EXPECT_EQ(schema, 9U);
    EXPECT_EQ(archive.ReadClass(), RUNTIME_CLASS(CRing));
}

TEST(ArchiveClassTest, DamagedRecordsThrow)
{
    struct
    {
        char const* name;
        ByteList bytes;
        int cause;
    } const cases[] = {
        {"null where a class belongs", {0x00, 0x00}, CArchiveException::badIndex},
        {"object number where a class belongs", {0x01, 0x00}, CArchiveException::badIndex},
        {"number never given", {0x01, 0x80}, CArchiveException::badIndex},
        {"class number zero", {0x00, 0x80}, CArchiveException::badIndex},
        {"big number never given", {0xFF, 0x7F, 0xFF, 0xFF, 0xFF, 0xFF}, CArchiveException::badIndex},
        {"big object number", {0xFF, 0x7F, 0x01, 0x00, 0x00, 0x00}, CArchiveException::badIndex},
        {"name longer than the data", {0xFF, 0xFF, 1, 0, 0xFF, 0xFF, 'C'}, CArchiveException::endOfFile},
        {"name with a zero byte", ClassRecord(std::string_view("CShape\0x", 8), 3), CArchiveException::badClass},
        {"empty name", ClassRecord("", 3), CArchiveException::badClass},
        {"class without a schema", ClassRecord("CSilent", 1), CArchiveException::badSchema},
    };
    for (auto const& each : cases)
    {
        EXPECT_EQ(CauseOfLoading(each.bytes, [](CArchive& archive) { archive.ReadClass(); }), each.cause) << each.name;
    }
    for (std::size_t length = 0; length < kShapeRecord.size(); ++length)
    {
        ByteList const cut(kShapeRecord.begin(), kShapeRecord.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_EQ(CauseOfLoading(cut, [](CArchive& archive) { archive.ReadClass(); }), CArchiveException::endOfFile);
    }
}

TEST(ArchiveClassTest, OnlyClassesWithASchemaAreStored)
{
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    for (CRuntimeClass* const each : {RUNTIME_CLASS(Shapes::CSilent), RUNTIME_CLASS(CObject), (CRuntimeClass*)nullptr})
    {
        EXPECT_EQ(CauseThrownBy<CArchiveException>([&] { archive.WriteClass(each); }), CArchiveException::badClass);
    }
}

TEST(ArchiveObjectTest, ObjectsShareTheNumberingAndMayFormARing)
{
    CShape first;
    CRing second;
    first.m_id = 7;
    first.m_next = &second;
    second.m_id = 8;
    second.m_next = &first;
    ByteList const bytes = Stored([&](CArchive& archive) { archive << &first << &second; });
    // Numbers: class CShape 1, first 2, class CRing 3, second 4.
    EXPECT_EQ(bytes, (kShapeRecord + ByteList{7} + kRingRecord + ByteList{8, 0x02, 0x00, 0x04, 0x00}));

    EXPECT_EQ(CauseOfLoading(bytes,
                             [](CArchive& archive)
                             {
                                 CShape* loaded = nullptr;
                                 CRing* ring = nullptr;
                                 archive >> loaded;
                                 std::unique_ptr<CShape> const owner(loaded);
                                 std::unique_ptr<CShape> const nextOwner(loaded->m_next);
                                 archive >> ring;
                                 EXPECT_EQ(loaded->m_next, ring);
                                 EXPECT_EQ(ring->m_next, loaded);
                                 EXPECT_EQ(ring->m_id, 8);
                             }),
              kNothingThrown);
}

TEST(ArchiveObjectTest, NumbersBeyond15BitsTakeTheLongForm)
{
    constexpr int kCount = 0x7FFF; // one class and 0x7FFF objects: the last two have numbers 0x7FFF and 0x8000
    std::vector<CRing> rings(kCount);
    ByteList const bytes = Stored(
        [&](CArchive& archive)
        {
            for (CRing& each : rings)
            {
                archive.WriteObject(&each);
            }
            archive.WriteObject(&rings[kCount - 3]);
            archive.WriteObject(&rings[kCount - 2]);
            archive.WriteClass(RUNTIME_CLASS(CShape));
            archive.WriteClass(RUNTIME_CLASS(CShape));
        });
    ByteList const expectedEnd = ByteList{0xFE, 0x7F, 0xFF, 0x7F, 0xFF, 0x7F, 0x00, 0x00} + kShapeRecord +
                                 ByteList{0xFF, 0x7F, 0x01, 0x80, 0x00, 0x80};
    ByteList const end(bytes.end() - static_cast<std::ptrdiff_t>(expectedEnd.size()), bytes.end());
    EXPECT_EQ(end, expectedEnd);

    CauseOfLoading(bytes,
                   [](CArchive& archive)
                   {
                       std::vector<std::unique_ptr<CObject>> loaded;
                       for (int i = 0; i < kCount; ++i)
                       {
                           loaded.emplace_back(archive.ReadObject());
                       }
                       EXPECT_EQ(archive.ReadObject(), loaded[kCount - 3].get());
                       EXPECT_EQ(archive.ReadObject(), loaded[kCount - 2].get());
                       EXPECT_EQ(archive.ReadClass(), RUNTIME_CLASS(CShape));
                       EXPECT_EQ(archive.ReadClass(), RUNTIME_CLASS(CShape));
                   });
}

// Whatever was loaded before the failure must be gone afterwards: the address sanitizer looks for leaks.
TEST(ArchiveObjectTest, DamagedObjectsThrowAndAreDestroyed)
{
    struct
    {
        char const* name;
        ByteList bytes;
        int cause;
    } const cases[] = {
        {"cut inside the object", kShapeRecord + ByteList{7}, CArchiveException::endOfFile},
        {"number never given", kShapeRecord + ByteList{7, 0x09, 0x00}, CArchiveException::badIndex},
        {"number of a class", kShapeRecord + ByteList{7, 0x01, 0x00}, CArchiveException::badIndex},
        {"class number of an object", kShapeRecord + ByteList{7, 0x02, 0x80}, CArchiveException::badIndex},
        {"wrong class", ClassRecord("CObject", 3) + ByteList{7}, CArchiveException::badClass},
    };
    for (auto const& each : cases)
    {
        CShape* shape = nullptr;
        EXPECT_EQ(CauseOfLoading(each.bytes, [&](CArchive& archive) { archive >> shape; }), each.cause) << each.name;
        EXPECT_EQ(shape, nullptr);
    }
}

TEST(ArchiveObjectTest, AFailedObjectIsNotFoundAgain)
{
    CMemFile file(kShapeRecord + ByteList{7, 0x09, 0x00, 0x02, 0x00});
    CArchive archive(&file, CArchive::load);
    CObject* object = nullptr;
    for (int i = 0; i < 2; ++i)
    {
        EXPECT_EQ(CauseThrownBy<CArchiveException>([&] { archive >> object; }), CArchiveException::badIndex);
    }
    EXPECT_EQ(object, nullptr);
}

TEST(ArchiveObjectTest, EndlessNestingIsRefused)
{
    ByteList bytes = kShapeRecord + ByteList{7};
    for (int i = 0; i < 100'000; ++i)
    {
        bytes.insert(bytes.end(), {0x01, 0x80, 7}); // one more shape inside the last
    }
    CShape* shape = nullptr;
    EXPECT_EQ(CauseOfLoading(bytes, [&](CArchive& archive) { archive >> shape; }), CArchiveException::genericException);
}

} // namespace
