// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBDocument.h"

#include <QFileInfo>

namespace
{

const HBImage<> nothing;

}

QString HBDocument::FileName() const
{
    return QFileInfo(m_Path).fileName();
}

const HBImage<>& HBDocument::Image() const
{
    return IsOpen() ? m_States.at(m_Index).image : nothing;
}

const HBImage<>& HBDocument::Original() const
{
    return IsOpen() ? m_States.first().image : nothing;
}

void HBDocument::SetPhoto(const QString& path, const HBPhoto& photo)
{
    m_Path = path;
    m_Encoding = photo.encoding;
    m_States = {{tr("Open"), photo.image, {}, true}};
    m_Index = m_SavedIndex = 0;
    Q_EMIT Changed();
}

void HBDocument::Apply(const State& state)
{
    if (!IsOpen())
        return;
    m_States.resize(m_Index + 1);
    if (m_SavedIndex > m_Index)
        m_SavedIndex = -2;
    m_States.append(state);
    ++m_Index;
    Q_EMIT Changed();
}

void HBDocument::GoTo(int index)
{
    if (index < 0 || index >= m_States.size() || index == m_Index)
        return;
    m_Index = index;
    Q_EMIT Changed();
}

void HBDocument::SetSaved(const QString& path, const HBPhotoEncoding& encoding)
{
    m_Path = path;
    m_Encoding = encoding;
    m_SavedIndex = m_Index;
    Q_EMIT Changed();
}

HBRecipe HBDocument::Recipe(int* leftOut) const
{
    HBRecipe recipe;
    int without = 0;
    for (int i = 1; i <= m_Index; ++i) {
        if (m_States.at(i).wholeImage)
            recipe.steps += m_States.at(i).steps;
        else
            ++without;
    }
    if (leftOut)
        *leftOut = without;
    return recipe;
}
