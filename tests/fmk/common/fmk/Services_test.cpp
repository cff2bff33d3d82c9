// SPDX-License-Identifier: MIT
// The runtime's small services, most of which do nothing on this phone.
#include "Command.h"
#include "Connector.h"
#include "GnoPlayer.h"
#include "Manager.h"
#include "OspBase.h"
#include "VolumeControl.h"

#include <gtest/gtest.h>

using Osp::Base::String;

class PlayerListener {};

TEST(Command, keepsWhatItIsGiven) {
    String label("Ok");
    String longLabel("Okay then");
    Command command(&label, 4, 2);
    EXPECT_EQ(&label, command.getLabel());
    EXPECT_EQ(nullptr, command.getLongLabel());
    EXPECT_EQ(4, command.getCommandType());
    EXPECT_EQ(2, command.getPriority());
    EXPECT_EQ(0, command.getID());
    command.initialize(5, 3);
    command.setLabel(&longLabel, &label);
    command.setInternalID(77);
    EXPECT_EQ(5, command.getCommandType());
    EXPECT_EQ(3, command.getPriority());
    EXPECT_EQ(&longLabel, command.getLabel());
    EXPECT_EQ(&label, command.getLongLabel());
    EXPECT_EQ(77, command.getInternalID());
}

TEST(Command, hasALongLabelWhenGivenOne) {
    String label("Ok");
    String longLabel("Okay then");
    const Command command(&label, &longLabel, 4, 2);
    EXPECT_EQ(&label, command.getLabel());
    EXPECT_EQ(&longLabel, command.getLongLabel());
}

TEST(VolumeControl, cannotBeChanged) {
    VolumeControl volume;
    volume.setLevel(80);
    volume.setMute(true);
    EXPECT_EQ(0, volume.getLevel());
    EXPECT_FALSE(volume.isMuted());
}

TEST(Connector, opensNothing) {
    String name("http://localhost/");
    EXPECT_EQ(nullptr, Connector::open(&name));
    EXPECT_EQ(nullptr, Connector::open(&name, 1));
    EXPECT_EQ(nullptr, Connector::open(&name, 1, true));
    EXPECT_EQ(nullptr, Connector::openInputStream(&name));
    EXPECT_EQ(nullptr, Connector::openOutputStream(&name));
    EXPECT_EQ(nullptr, Connector::openDataInputStream(&name));
    EXPECT_EQ(nullptr, Connector::openDataOutputStream(&name));
}

TEST(Manager, makesNoPlayers) {
    String name("capture://audio");
    EXPECT_EQ(nullptr, Manager::createPlayer(&name, true));
    EXPECT_EQ(nullptr, Manager::createRecorder(&name));
}

TEST(GnoPlayer, hasNoMediumAndNoControls) {
    GnoPlayer player;
    String type("VolumeControl");
    player.start();
    player.setLoopCount(3);
    player.pause();
    player.resume();
    player.startRecord();
    player.stop();
    player.deallocate();
    player.close();
    EXPECT_EQ(-1, player.getMediaState());
    EXPECT_EQ(nullptr, player.getControl(&type));
}

TEST(GnoPlayer, keepsOneListener) {
    GnoPlayer player;
    PlayerListener first;
    PlayerListener second;
    EXPECT_EQ(nullptr, player.getPlayerListener());
    player.addPlayerListener(&first);
    player.addPlayerListener(&second);
    EXPECT_EQ(&second, player.getPlayerListener());
    player.removePlayerListener(&first);
    EXPECT_EQ(&second, player.getPlayerListener());
    player.removePlayerListener(&second);
    EXPECT_EQ(nullptr, player.getPlayerListener());
}
