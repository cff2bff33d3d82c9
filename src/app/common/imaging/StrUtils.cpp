// SPDX-License-Identifier: MIT
#include "StrUtils.h"

#include "ArrFunc.h"
#include "Integer.h"
#include "OspBase.h"

using Osp::Base::String;

namespace {

bool isDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
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
            String digits = text->SubString(begin, i - begin);
            numbers[count] = Integer::parseInt(&digits);
        }
        count++;
    }
    return count;
}
