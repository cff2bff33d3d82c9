// SPDX-License-Identifier: MIT
#include "RecordStore.h"

#include "ArrFunc.h"
#include "Utils.h"

#include <algorithm>

namespace {

constexpr int32_t kWordBytes = 4;
constexpr int32_t kFirstEntryBytes = 20;  // after the five values

}  // namespace

const char* const RecordStore::kNoSpaceDataNotSaved =
    "There is not enough free space on your device.\nYour data will not be saved.\nPress any key "
    "to continue.";
const char* const RecordStore::kNoSpaceExit =
    "There is not enough free space on your device.\nDelete some files.\nPress any key to exit.";

RecordStore::~RecordStore() {
    deleteArrFunc(records);
}

RecordStore* RecordStore::openRecordStore(Osp::Base::String* name, bool create) {
    return openRecordStore(name, create, 0, true);
}

RecordStore* RecordStore::openRecordStore(Osp::Base::String* /*name*/,
                                          bool /*create*/,
                                          int32_t /*authMode*/,
                                          bool /*writable*/) {
    return nullptr;
}

void RecordStore::saveToHeader(signed char* bytes) {
    makeRecords();
    int32_t off = 0;
    for (const int32_t value : {header0, header1, header2, header3, numRecords}) {
        off += Utils::putInt(value, bytes, off);
    }
    for (int32_t i = 0; i < entriesInUse(); i++) {
        Utils::putInt(records[i], bytes, kFirstEntryBytes + kWordBytes * i);
    }
}

void RecordStore::updateFromHeader(const signed char* bytes) {
    makeRecords();
    int32_t off = 0;
    for (int32_t* value : {&header0, &header1, &header2, &header3, &numRecords}) {
        *value = Utils::getInt(bytes, off);
        off += kWordBytes;
    }
    for (int32_t i = 0; i < entriesInUse(); i++) {
        records[i] = Utils::getInt(bytes, kFirstEntryBytes + kWordBytes * i);
    }
}

int32_t RecordStore::entriesInUse() const {
    return std::clamp(numRecords, 0, kMaxRecords);
}

void RecordStore::makeRecords() {
    if (records == nullptr) {
        records = newArray<int32_t>(kMaxRecords);
    }
}
