#include <gesso/containers/Misuse.h>

#include <gtest/gtest.h>

TEST(Misuse, StopsCanBeSwitchedOffAndAreOnAtStart)
{
    EXPECT_TRUE(gesso::SetMisuseStops(false));
    gesso::Misuse("the test");
    EXPECT_FALSE(gesso::SetMisuseStops(true));
}
