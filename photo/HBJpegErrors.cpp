// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBJpegErrors.h"

#include <jerror.h>
#include <new>

HBJpegErrors::HBJpegErrors() : m_State()
{
    jpeg_std_error(&m_State.manager);
    m_State.manager.error_exit = OnError;
    m_State.manager.output_message = OnMessage;
    m_State.manager.emit_message = OnRemark;
}

void HBJpegErrors::OnError(j_common_ptr codec)
{
    auto* state = reinterpret_cast<State*>(codec->err);
    state->manager.format_message(codec, state->error);
    std::longjmp(state->jump, 1);
}

void HBJpegErrors::OnMessage(j_common_ptr codec)
{
    auto* state = reinterpret_cast<State*>(codec->err);
    if (!state->remark[0])
        state->manager.format_message(codec, state->remark);
}

/// The library's own shows the first warning only, which for a file that was cut short is that it has no end.
void HBJpegErrors::OnRemark(j_common_ptr codec, int level)
{
    if (level >= 0)
        return; // traces
    auto* state = reinterpret_cast<State*>(codec->err);
    state->lacksPixels = state->lacksPixels || state->manager.msg_code == JWRN_HIT_MARKER;
    ++state->manager.num_warnings;
    state->manager.output_message(codec);
}

void HBJpegErrors::ThrowIfOutOfMemory() const
{
    if (m_State.error[0] && m_State.manager.msg_code == JERR_OUT_OF_MEMORY)
        throw std::bad_alloc();
}
