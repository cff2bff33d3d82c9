// SPDX-License-Identifier: MIT
// A store of records that stores nothing: settings are kept in the platform's registry. Only the
// header and its image in bytes work.
#pragma once

#include "GnoObject.h"

class RecordStore : public GnoObject {
public:
    /// How many records a header can list.
    static constexpr int32_t kMaxRecords = 20;

    /// The messages of a full device while running and at the start. Nothing shows them here.
    static const char* const kNoSpaceDataNotSaved;
    static const char* const kNoSpaceExit;

    RecordStore() = default;
    ~RecordStore() override;

    /// Null: no store can be opened.
    static RecordStore* openRecordStore(Osp::Base::String* name, bool create);
    static RecordStore*
    openRecordStore(Osp::Base::String* name, bool create, int32_t authMode, bool writable);

    static void deleteRecordStore(Osp::Base::String* /*name*/) {}

    void closeRecordStore() {}

    void deleteRecord(int32_t /*id*/) {}

    void init() {}

    void updateHeader() {}

    /// -1: not added.
    int32_t addRecord(signed char* /*bytes*/, int32_t /*off*/, int32_t /*len*/) { return -1; }

    /// Deliberate: 1, as if it had worked, although nothing is kept.
    int32_t setRecord(int32_t /*id*/, signed char* /*bytes*/, int32_t /*off*/, int32_t /*len*/) {
        return 1;
    }

    signed char* getRecord(int32_t /*id*/) { return nullptr; }

    int32_t getNumRecords() const { return numRecords; }

    int32_t getFreeSpace() const { return 0; }

    /// The header as big-endian words in a counted array: the five values, then an entry for each
    /// record. Words that do not fit into the array are left out.
    void saveToHeader(signed char* bytes);

    /// Reads the header from such an array; missing words count as 0.
    void updateFromHeader(const signed char* bytes);

private:
    int32_t entriesInUse() const;
    void makeRecords();

    // Only the last of the five has a meaning here; the others are read and written unchanged.
    int32_t header0 = 0;
    int32_t header1 = 0;
    int32_t header2 = 0;
    int32_t header3 = 0;
    int32_t numRecords = 0;
    int32_t* records = nullptr;  // counted array of kMaxRecords entries, made on first use
};
