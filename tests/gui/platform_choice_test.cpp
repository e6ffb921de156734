// The platform the calculator asks Qt for: X11 wherever an X display can be
// reached, unless the user chose one; Wayland only where nothing else is.
#include "qtbind/platform_choice.h"

#include <gtest/gtest.h>

namespace {

TEST(PlatformChoice, AnXDisplayMeansX11) {
    EXPECT_EQ(qtbind::PlatformToChoose(nullptr, ":0", nullptr), "xcb");
    EXPECT_EQ(qtbind::PlatformToChoose("", ":1", ""), "xcb");
}

TEST(PlatformChoice, InAWaylandSessionXwaylandComesFirstAndWaylandAfterIt) {
    EXPECT_EQ(qtbind::PlatformToChoose(nullptr, ":1", "wayland-0"), "xcb;wayland");
}

TEST(PlatformChoice, ThePlatformTheUserChoseStands) {
    EXPECT_EQ(qtbind::PlatformToChoose("wayland", ":0", "wayland-0"), "");
    EXPECT_EQ(qtbind::PlatformToChoose("offscreen", ":0", nullptr), "");
}

TEST(PlatformChoice, WithoutAnXDisplayQtChooses) {
    EXPECT_EQ(qtbind::PlatformToChoose(nullptr, nullptr, "wayland-0"), "");
    EXPECT_EQ(qtbind::PlatformToChoose(nullptr, "", nullptr), "");
}

TEST(PlatformChoice, WaylandPlatformsAreKnownByName) {
    EXPECT_TRUE(qtbind::IsWaylandPlatform("wayland"));
    EXPECT_TRUE(qtbind::IsWaylandPlatform("wayland-egl"));
    EXPECT_FALSE(qtbind::IsWaylandPlatform("xcb"));
    EXPECT_FALSE(qtbind::IsWaylandPlatform("offscreen"));
}

TEST(PlatformChoice, TheWarningSaysWhatIsLostInOneLine) {
    const std::string warning = qtbind::kWaylandWarning;
    EXPECT_NE(warning.find("Wayland session"), std::string::npos);
    EXPECT_NE(warning.find("place its windows"), std::string::npos);
    EXPECT_NE(warning.find("on top"), std::string::npos);
    EXPECT_EQ(warning.find('\n'), warning.size() - 1);
}

}  // namespace
