// SPDX-License-Identifier: MIT
// The record store keeps nothing, but reads and writes its header.
#include "ArrFunc.h"
#include "OspBase.h"
#include "RecordStore.h"
#include "Utils.h"

#include <gtest/gtest.h>

namespace {

constexpr int32_t kFullHeaderBytes = 20 + 4 * 20;

/// A header image whose word i is 100 + i, but for the number of records.
signed char* headerOf(int32_t numRecords, int32_t bytes = kFullHeaderBytes) {
    auto* header = newArray<signed char>(bytes);
    for (int32_t i = 0; i < bytes / 4; i++) {
        Utils::putInt(i == 4 ? numRecords : 100 + i, header, 4 * i);
    }
    return header;
}

/// Reads a header into a fresh store and writes it out again.
signed char* throughAStore(signed char* header) {
    RecordStore store;
    store.updateFromHeader(header);
    auto* image = newArray<signed char>(kFullHeaderBytes);
    store.saveToHeader(image);
    return image;
}

}  // namespace

TEST(RecordStore, cannotBeOpened) {
    Osp::Base::String name("settings");
    EXPECT_EQ(nullptr, RecordStore::openRecordStore(&name, true));
    EXPECT_EQ(nullptr, RecordStore::openRecordStore(&name, true, 0, true));
    RecordStore::deleteRecordStore(&name);
}

TEST(RecordStore, keepsNoRecords) {
    RecordStore store;
    auto* bytes = newArray<signed char>(4);
    store.init();
    EXPECT_EQ(-1, store.addRecord(bytes, 0, 4));
    EXPECT_EQ(1, store.setRecord(1, bytes, 0, 4));
    EXPECT_EQ(nullptr, store.getRecord(1));
    store.deleteRecord(1);
    store.updateHeader();
    store.closeRecordStore();
    EXPECT_EQ(0, store.getNumRecords());
    EXPECT_EQ(0, store.getFreeSpace());
    deleteArrFunc(bytes);
}

TEST(RecordStore, aNewOneHasAHeaderOfZeros) {
    RecordStore store;
    auto* image = headerOf(7);
    store.saveToHeader(image);
    for (int32_t i = 0; i < 5; i++) {
        EXPECT_EQ(0, Utils::getInt(image, 4 * i));
    }
    EXPECT_EQ(105, Utils::getInt(image, 20));  // no record: as it was
    deleteArrFunc(image);
}

TEST(RecordStore, theHeaderHoldsFiveValuesAndAnEntryForEachRecord) {
    auto* header = headerOf(20);
    auto* image = throughAStore(header);
    for (int32_t i = 0; i < kFullHeaderBytes; i++) {
        EXPECT_EQ(header[i], image[i]) << i;
    }
    deleteArrFunc(image);
    deleteArrFunc(header);
}

TEST(RecordStore, onlyEntriesOfRecordsTravel) {
    auto* header = headerOf(2);
    auto* image = throughAStore(header);
    EXPECT_EQ(2, Utils::getInt(image, 16));
    EXPECT_EQ(105, Utils::getInt(image, 20));
    EXPECT_EQ(106, Utils::getInt(image, 24));
    EXPECT_EQ(0, Utils::getInt(image, 28));
    deleteArrFunc(image);
    deleteArrFunc(header);
}

TEST(RecordStore, numberOfRecordsIsTheFifthValueEvenWhenThereIsNoRoomForThem) {
    for (const int32_t number : {21, 0x7FFFFFFF, -1}) {
        auto* header = headerOf(number, 200);
        RecordStore store;
        store.updateFromHeader(header);
        EXPECT_EQ(number, store.getNumRecords());
        auto* image = newArray<signed char>(200);
        store.saveToHeader(image);
        EXPECT_EQ(number > 0 ? 124 : 0, Utils::getInt(image, 20 + 4 * 19));
        EXPECT_EQ(0, Utils::getInt(image, 20 + 4 * 20));
        deleteArrFunc(image);
        deleteArrFunc(header);
    }
}

TEST(RecordStore, aShortHeaderCountsAsZerosAfterItsEnd) {
    auto* header = headerOf(20, 22);
    auto* image = throughAStore(header);
    EXPECT_EQ(20, Utils::getInt(image, 16));
    EXPECT_EQ(0, Utils::getInt(image, 20));
    RecordStore store;
    store.updateFromHeader(image);
    store.saveToHeader(header);  // 22 bytes: the address sanitizer watches their end
    EXPECT_EQ(100, Utils::getInt(header, 0));
    deleteArrFunc(image);
    deleteArrFunc(header);
}

TEST(RecordStore, hasTwoTextsForAFullDevice) {
    EXPECT_STREQ("There is not enough free space on your device.\nYour data will not be "
                 "saved.\nPress any key to continue.",
                 RecordStore::kNoSpaceDataNotSaved);
    EXPECT_STREQ("There is not enough free space on your device.\nDelete some files.\nPress any "
                 "key to exit.",
                 RecordStore::kNoSpaceExit);
}
