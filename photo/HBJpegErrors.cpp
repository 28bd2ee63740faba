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

void HBJpegErrors::ThrowIfOutOfMemory() const
{
    if (m_State.error[0] && m_State.manager.msg_code == JERR_OUT_OF_MEMORY)
        throw std::bad_alloc();
}
