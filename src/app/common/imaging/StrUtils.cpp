#include "StrUtils.h"

#include "Arithmetic.h"
#include "ArrFunc.h"
#include "OspBase.h"

using Osp::Base::String;

namespace {

bool isDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

/// The digits of text[begin .. end - 1], as Integer::parseInt reads them.
int32_t parseDigits(const String& text, int32_t begin, int32_t end) {
    int32_t value = 0;
    for (int32_t i = begin; i < end; i++) {
        value = wrapAdd(wrapMul(value, 10), text[i] - u'0');
    }
    return value;
}

}  // namespace

int32_t StrUtils::parseInts(String* text, int32_t* numbers) {
    int32_t count = 0;
    int32_t i = 0;
    while (i < text->GetLength()) {
        const int32_t begin = i++;
        if (!isDigit((*text)[begin]) && (*text)[begin] != u'-') {
            continue;
        }
        while (i < text->GetLength() && isDigit((*text)[i])) {
            i++;
        }
        if (count < length(numbers)) {
            numbers[count] = parseDigits(*text, begin, i);
        }
        count++;
    }
    return count;
}
