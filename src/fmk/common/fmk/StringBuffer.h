// SPDX-License-Identifier: MIT
// Text that grows at its end. Characters have 16 bits.
#pragma once

#include "GnoObject.h"

class StringBuffer : public GnoObject {
public:
    /// Room for 16 characters.
    StringBuffer();
    explicit StringBuffer(int32_t capacity);

    /// Just room for the text.
    explicit StringBuffer(const Osp::Base::String* text);
    explicit StringBuffer(const char* utf8);
    ~StringBuffer() override;

    /// All return this buffer. Null texts and objects add nothing.
    StringBuffer* append(const Osp::Base::String* text);
    StringBuffer* append(const char* utf8);
    StringBuffer* append(char16_t character);

    /// Up to the terminating zero.
    StringBuffer* append(const char16_t* text);
    StringBuffer* append(const char16_t* text, int32_t off, int32_t len);

    /// The object's toString().
    StringBuffer* append(GnoObject* object);

    /// Decimal.
    StringBuffer* append(int32_t value);

    /// "true" or "false".
    StringBuffer* append(bool value);

    StringBuffer* append(float /*value*/) { return this; }

    StringBuffer* append(double /*value*/) { return this; }

    /// Inserts at off (0 .. length()); the rest of the text moves towards the end.
    StringBuffer* insert(int32_t off, char16_t character);
    StringBuffer* insert(int32_t off, const char16_t* text, int32_t len);

    /// Only characters can be inserted; everything else leaves the text as it is.
    StringBuffer* insert(int32_t /*off*/, const Osp::Base::String* /*text*/) { return this; }

    StringBuffer* insert(int32_t /*off*/, const char* /*utf8*/) { return this; }

    StringBuffer* insert(int32_t /*off*/, const char16_t* /*text*/) { return this; }

    StringBuffer* insert(int32_t /*off*/, GnoObject* /*object*/) { return this; }

    StringBuffer* insert(int32_t /*off*/, int32_t /*value*/) { return this; }

    StringBuffer* insert(int32_t /*off*/, bool /*value*/) { return this; }

    StringBuffer* insert(int32_t /*off*/, float /*value*/) { return this; }

    StringBuffer* insert(int32_t /*off*/, double /*value*/) { return this; }

    /// The character at an index; 0 beyond the text.
    char16_t charAt(int32_t index) const;

    int32_t length() const { return used; }

    int32_t capacity() const;

    /// Cuts the text, or fills it up with zero characters.
    void setLength(int32_t length);

    /// Removes the characters start .. end - 1, as far as there are any.
    StringBuffer* deleteFrom(int32_t start, int32_t end);

    void ensureCapacity(int32_t minimum);

    /// A new string of the characters in use; the caller deletes it.
    Osp::Base::String* toString() override;

private:
    char16_t* characters;  // counted array, its length is the capacity
    int32_t used = 0;
};
