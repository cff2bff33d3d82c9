// SPDX-License-Identifier: MIT
// The phone platform's basics: results, objects, 16-bit text, lists, and yielding to other threads.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// 0 is success, everything else a failure.
using result = uint32_t;

constexpr result E_SUCCESS = 0;
constexpr result E_FAILURE = 0x8000000F;
constexpr result E_FILE_NOT_FOUND = 0x80000010;
constexpr result E_FILE_ALREADY_EXIST = 0x80000011;
constexpr result E_KEY_NOT_FOUND = 0xA0000835;
constexpr result E_KEY_ALREADY_EXIST = 0xA0000836;

/// A short English text for a result; never null.
const char* GetErrorMessage(result r);

namespace Osp::Base {

class Object {
public:
    virtual ~Object() = default;
};

/// Text of 16-bit characters (UTF-16 code units).
class String : public Object {
public:
    String() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): texts convert as on the phone
    String(const char* utf8);
    // NOLINTNEXTLINE(google-explicit-constructor): texts convert as on the phone
    String(const char16_t* text);

    explicit String(char16_t character)
        : text(1, character) {}

    String(const String&) = default;
    String& operator=(const String&) = default;

    int32_t GetLength() const { return static_cast<int32_t>(text.size()); }

    bool IsEmpty() const { return text.empty(); }

    /// @param index  0 to GetLength() - 1; not checked
    char16_t operator[](int32_t index) const { return text[static_cast<size_t>(index)]; }

    bool operator==(const String& other) const { return text == other.text; }

    bool operator!=(const String& other) const { return text != other.text; }

    /// True if this text contains other at the given position.
    bool StartsWith(const String& other, int32_t from) const;
    bool EndsWith(const String& other) const;

    void Append(const String& other) { text += other.text; }

    void Append(char16_t character) { text += character; }

    void Append(int32_t value);

    void Insert(char16_t character, int32_t index) {
        text.insert(static_cast<size_t>(index), 1, character);
    }

    /// Characters start to start + count - 1, or as many of them as there are.
    String SubString(int32_t start, int32_t count) const;

    String SubString(int32_t start) const { return SubString(start, GetLength()); }

    /// For the platform side: files, registry, messages.
    std::string ToUtf8() const;

private:
    std::u16string text;
};

String operator+(const String& a, const String& b);

/// Decimal text of an integer.
class Integer {
public:
    static String ToString(int32_t value);
};

namespace Collection {

class IList : public Object {
public:
    virtual int32_t GetCount() const = 0;

    /// Null if the index is out of range.
    virtual Object* GetAt(int32_t index) = 0;
};

/// Holds pointers; deletes the objects only when RemoveAll is told to.
class ArrayList : public IList {
public:
    result Construct(int32_t capacity);
    result Add(Object& object);

    int32_t GetCount() const override { return static_cast<int32_t>(items.size()); }

    Object* GetAt(int32_t index) override;
    void RemoveAll(bool deallocate);

private:
    std::vector<Object*> items;
};

}  // namespace Collection

namespace Runtime {

class Thread {
public:
    /// Lets other work of the machine run for a moment. Delivers no event.
    static void Yield();
};

}  // namespace Runtime

namespace Utility {

class Math {
public:
    static double Sqrt(double value);
};

}  // namespace Utility

}  // namespace Osp::Base
