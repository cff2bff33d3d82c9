// SPDX-License-Identifier: MIT
// An empty registry over a folder of the test's own, with helpers that write pictures and a font
// into it.
#pragma once

#include "AppImage.h"
#include "ArrFunc.h"
#include "BitMapCharacter.h"
#include "BitMapFont.h"
#include "Bounds.h"
#include "ByteArrayOutputStream.h"
#include "OspBase.h"
#include "Res.h"
#include "TestFolders.h"
#include "TestHost.h"
#include "TestPng.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

class TestRegistry : public testing::Test {
public:
    TestRegistry() {
        folders.makeFolder("Res");
        host.mappedFolders.res = folders.path("Res");
        host.mappedFolders.framework = folders.path("framework");
        Res::static_ctor();
    }

    ~TestRegistry() override { Res::static_dtor(); }

    /// Writes "/Res/<name>": an RGBA file of straight ARGB words.
    void
    writePicture(const std::string& name, int32_t w, int32_t h, const std::vector<uint32_t>& argb) {
        Bytes rows;
        for (int32_t i = 0; i < w * h; i++) {
            if (i % w == 0) {
                rows.push_back(0);  // no filter
            }
            const uint32_t pixel = argb[static_cast<size_t>(i)];
            for (const int32_t shift : {16, 8, 0, 24}) {
                rows.push_back(static_cast<unsigned char>(pixel >> shift));
            }
        }
        writeBytes("Res/" + name, TestPng::file(w, h, 8, 6, rows));
    }

    /// Writes "/Res/<name>" of one colour.
    void writePicture(const std::string& name, int32_t w, int32_t h, uint32_t argb) {
        writePicture(name, w, h, std::vector<uint32_t>(static_cast<size_t>(w * h), argb));
    }

    void writeBytes(const std::string& name, const Bytes& bytes) {
        folders.write(name, std::string(bytes.begin(), bytes.end()));
    }

    /// Writes "/Res/<name>": small letters are full blocks of 4 x 6 that stand on the baseline with
    /// one empty column on each side; "W" is 30 x 6 without any; a space is 3 wide. Lines are 12
    /// high, the baseline lies 10 below their top.
    void writeFont(const std::string& name) {
        String fontName("blocks");
        BitMapFont font(&fontName, 10.0F, 12);
        const std::vector<signed char> ink(30 * 6, 15);
        for (int32_t c = 'a'; c <= 'z'; c++) {
            font.addChar(new BitMapCharacter(c, ink.data(), 4, 6, 6, 1, -6));
        }
        font.addChar(new BitMapCharacter('W', ink.data(), 30, 6, 30, 0, -6));
        font.addChar(new BitMapCharacter(' ', 3, 0, 0));
        ByteArrayOutputStream out;
        ASSERT_TRUE(font.writeTo(&out));
        signed char* bytes = out.toByteArray();
        folders.write("Res/" + name, std::string(reinterpret_cast<const char*>(bytes),
                                                 static_cast<size_t>(length(bytes))));
        deleteArrFunc(bytes);
    }

    static std::vector<uint32_t> pixelsOf(const AppImage& image) {
        return {image.pixels.get(), image.pixels + image.w * image.h};
    }

    /// x, y, w, h
    static std::vector<int32_t> rectOf(Bounded& bounded) {
        Bounds b;
        bounded.getBounds(&b);
        return {b.x, b.y, b.w, b.h};
    }

    using String = Osp::Base::String;

    TestHost host;
    TestFolders folders;
};
