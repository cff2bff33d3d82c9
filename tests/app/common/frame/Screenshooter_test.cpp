// SPDX-License-Identifier: MIT
// The screenshot listener hears the keys and changes nothing.
#include "AppImage.h"
#include "ArrFunc.h"
#include "Event.h"
#include "Orm.h"
#include "OspBase.h"
#include "Screenshooter.h"
#include "ScreensTest.h"
#include "Vector.h"

#include <memory>

using Osp::Base::String;

namespace {

class ScreenshooterTest : public ScreensTest {};

}  // namespace

TEST_F(ScreenshooterTest, hearsKeyPressesFromItsBeginningToItsEnd) {
    {
        Screenshooter shooter;
        EXPECT_TRUE(Orm::listeners->contains(&shooter));
        ASSERT_EQ(1, length(shooter.getSubscriptions()));
        EXPECT_EQ(Orm::EV_T_KEY_PRESS, shooter.getSubscriptions()[0]);
    }
    EXPECT_EQ(0, Orm::listeners->size());
}

TEST_F(ScreenshooterTest, noKeyChangesThePicture) {
    Screenshooter shooter;
    const Pixels before = picture();
    String key("Keycode: 42");
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, &key, nullptr, 0);
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, nullptr, nullptr, 0);
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_UP, nullptr, 0);
    tick();
    EXPECT_EQ(before, picture());
    EXPECT_TRUE(pending().empty());
    EXPECT_FALSE(folders.has("home/screenshot.png"));
}

TEST_F(ScreenshooterTest, onePressOfOneKeyAsksForThePicture) {
    String key("Keycode: 42");
    String other("Keycode: 43");
    Event press(Orm::EV_T_KEY_PRESS, &key, nullptr, 0);
    Event release(Orm::EV_T_KEY_RELEASE, &key, nullptr, 0);
    Event otherKey(Orm::EV_T_KEY_PRESS, &other, nullptr, 0);
    Event noKey(Orm::EV_T_KEY_PRESS, nullptr, nullptr, 0);
    EXPECT_TRUE(Screenshooter::asksForPicture(&press));
    EXPECT_FALSE(Screenshooter::asksForPicture(&release));
    EXPECT_FALSE(Screenshooter::asksForPicture(&otherKey));
    EXPECT_FALSE(Screenshooter::asksForPicture(&noKey));
}

TEST_F(ScreenshooterTest, mayOutliveTheScheduler) {
    auto shooter = std::make_unique<Screenshooter>();
    ASSERT_TRUE(Orm::listeners->contains(shooter.get()));
    end();
    EXPECT_EQ(nullptr, Orm::listeners);
    shooter.reset();  // no scheduler is left to unregister from
    EXPECT_EQ(nullptr, Orm::listeners);
}
