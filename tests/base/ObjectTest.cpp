#include <memory>

#include <gtest/gtest.h>

#include <ostrel/platform/base/Exception.h>
#include <ostrel/platform/base/Object.h>

namespace Outer::Inner
{

class CPlain : public CObject
{
    DECLARE_DYNAMIC(CPlain)
};
IMPLEMENT_DYNAMIC(CPlain, CObject)

class CMade : public CPlain
{
    DECLARE_DYNCREATE(CMade)
};
IMPLEMENT_DYNCREATE(CMade, CPlain)

class CUndeclared : public CMade
{};

} // namespace Outer::Inner

class CElsewhere : public Outer::Inner::CMade
{
    DECLARE_DYNCREATE(CElsewhere)
};
IMPLEMENT_DYNCREATE(CElsewhere, Outer::Inner::CMade)

namespace
{

using Outer::Inner::CMade;
using Outer::Inner::CPlain;

TEST(RuntimeClassTest, FoundByBareNameAndMade)
{
    CRuntimeClass* const made = CRuntimeClass::FromName("CMade");
    ASSERT_EQ(made, RUNTIME_CLASS(Outer::Inner::CMade));
    std::unique_ptr<CObject> const object(made->CreateObject());
    EXPECT_NE(dynamic_cast<CMade*>(object.get()), nullptr);
    EXPECT_STREQ(object->GetRuntimeClass()->m_lpszClassName, "CMade");
    EXPECT_EQ(RUNTIME_CLASS(CPlain)->CreateObject(), nullptr);
    for (char const* unknown : {"Outer::Inner::CMade", "CMad", "", static_cast<char const*>(nullptr)})
    {
        EXPECT_EQ(CRuntimeClass::FromName(unknown), nullptr);
    }
}

TEST(RuntimeClassTest, KindsFollowTheBasesAcrossNamespaces)
{
    CElsewhere const elsewhere;
    for (CRuntimeClass* base : {RUNTIME_CLASS(CElsewhere), RUNTIME_CLASS(CMade), RUNTIME_CLASS(CObject)})
    {
        EXPECT_TRUE(elsewhere.IsKindOf(base)) << base->m_lpszClassName;
    }
    EXPECT_FALSE(elsewhere.IsKindOf(RUNTIME_CLASS(CException)));
    EXPECT_FALSE(elsewhere.IsKindOf(nullptr));
    EXPECT_FALSE(CMade().IsKindOf(RUNTIME_CLASS(CElsewhere)));
    EXPECT_EQ(Outer::Inner::CUndeclared().GetRuntimeClass(), RUNTIME_CLASS(CMade));
    EXPECT_FALSE(elsewhere.IsSerializable());
}

TEST(RuntimeClassTest, UnloadedClassesAreForgottenAndUncoverOlderOnes)
{
    {
        CRuntimeClass const younger("CMade", 1, 1, nullptr, RUNTIME_CLASS(CObject));
        EXPECT_EQ(CRuntimeClass::FromName("CMade"), &younger);
    }
    EXPECT_EQ(CRuntimeClass::FromName("CMade"), RUNTIME_CLASS(CMade));
}

} // namespace
