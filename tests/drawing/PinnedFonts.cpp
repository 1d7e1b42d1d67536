// Gives the test program its own fonts before anything asks for one.
#include <cstdlib>

#include <gtest/gtest.h>

namespace
{

class PinnedFonts : public testing::Environment
{
public:
    void SetUp() override { ASSERT_EQ(setenv("FONTCONFIG_FILE", OSTREL_TEST_FONTS, 1), 0); }
};

testing::Environment* const kPinnedFonts = testing::AddGlobalTestEnvironment(new PinnedFonts);

} // namespace
