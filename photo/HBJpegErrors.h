// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <csetjmp>
#include <cstdio> // before jpeglib.h, which does not include it
#include <jpeglib.h>

/// libjpeg's way out of an error, for one codec. What it jumps over must have no destructors: each call into the
/// library stands in a function of its own, behind setjmp(). Call it with the codec's `err` set to Manager().
class HBJpegErrors
{
public:
    HBJpegErrors();
    HBJpegErrors(const HBJpegErrors&) = delete;
    HBJpegErrors& operator=(const HBJpegErrors&) = delete;

    jpeg_error_mgr* Manager() { return &m_State.manager; }
    std::jmp_buf& Jump() { return m_State.jump; }
    /// What went wrong.
    const char* Error() const { return m_State.error; }
    /// What the library only remarks, the first time; empty if nothing.
    const char* Remark() const { return m_State.remark; }
    /// Whether the file ended, or another part of it began, in the midst of pixels: what is missing is grey.
    bool LacksPixels() const { return m_State.lacksPixels; }
    /// After a failure. \throws std::bad_alloc if it was that there is no memory
    void ThrowIfOutOfMemory() const;

private:
    struct State
    {
        jpeg_error_mgr manager; // first: the library knows no more of this
        std::jmp_buf jump;
        char error[JMSG_LENGTH_MAX];
        char remark[JMSG_LENGTH_MAX];
        bool lacksPixels;
    };
    [[noreturn]] static void OnError(j_common_ptr codec);
    static void OnMessage(j_common_ptr codec);
    static void OnRemark(j_common_ptr codec, int level);

    State m_State;
};
