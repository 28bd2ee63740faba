// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReadJson.h"

#include "HBRecipeReason.h"

#include <HBQtImage.h>

#include <QJsonArray>

#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace
{

/// Goes through JSON up to where it is none, which Qt says better.
class KeyReader
{
public:
    explicit KeyReader(const QByteArray& json) : m_Json(json.constData(), std::size_t(json.size())) {}

    /// With its quotes; empty if no key stands twice in an object.
    std::string_view FindTwice()
    {
        while (m_At < m_Json.size()) {
            const char c = m_Json[m_At];
            if (c == '"') {
                const std::string_view text = TakeString();
                m_At = std::min(m_Json.find_first_not_of(" \t\r\n", m_At), m_Json.size());
                if (m_At < m_Json.size() && m_Json[m_At] == ':' && !m_Open.empty())
                    m_Open.back().emplace_back(HashOf(text), text);
                continue;
            }
            ++m_At;
            if (c == '{' || c == '[') {
                if (m_Open.size() == DeepestLevel)
                    return {};
                m_Open.emplace_back();
                m_Open.back().reserve(c == '{' ? 8 : 0);
            } else if ((c == '}' || c == ']') && !m_Open.empty()) {
                Keys& keys = m_Open.back();
                std::sort(keys.begin(), keys.end(), [](const Key& a, const Key& b) { return a.first < b.first; });
                const auto twice = std::adjacent_find(
                    keys.begin(), keys.end(), [](const Key& a, const Key& b) { return a.first == b.first; });
                if (twice != keys.end())
                    return twice->second;
                m_Open.pop_back();
            }
        }
        return {};
    }

private:
    using Key = std::pair<std::size_t, std::string_view>;
    using Keys = std::vector<Key>;

    static constexpr std::size_t DeepestLevel = 1024; ///< which Qt reads

    std::string_view TakeString()
    {
        const std::size_t begin = m_At;
        do
            m_At = std::min(m_Json.find('"', m_At + 1), m_Json.size());
        while (m_At < m_Json.size() && IsEscaped(m_At));
        m_At = std::min(m_At + 1, m_Json.size());
        return m_Json.substr(begin, m_At - begin);
    }
    bool IsEscaped(std::size_t at) const
    {
        std::size_t first = at;
        while (m_Json[first - 1] == '\\') // up to the quote that begins the string
            --first;
        return (at - first) % 2 != 0;
    }
    /// Of what it means: the same letter can be written in several ways.
    static std::size_t HashOf(std::string_view text)
    {
        const std::hash<std::string_view> hash;
        if (text.find('\\') == std::string_view::npos)
            return hash(text);
        const QByteArray list = '[' + QByteArray(text.data(), int(text.size())) + ']';
        const QByteArray plain = '"' + QJsonDocument::fromJson(list).array().at(0).toString().toUtf8() + '"';
        return hash({plain.constData(), std::size_t(plain.size())});
    }

    const std::string_view m_Json;
    std::size_t m_At = 0;
    std::vector<Keys> m_Open; ///< the objects and lists around
};

} // namespace

QJsonDocument HBReadJson(const QByteArray& json, QString* error)
{
    HBCheckMemory(); // Qt ends the process if it finds none
    const std::string_view twice = KeyReader(json).FindTwice();
    if (!twice.empty()) {
        constexpr std::size_t longest = 40;
        if (error) {
            *error = HBRecipeReason::tr("The key %1 stands twice in one object.")
                         .arg(QString::fromUtf8(twice.data(), int(std::min(twice.size(), longest))));
        }
        return {};
    }
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(json, &problem);
    if (document.isNull() && error)
        *error =
            HBRecipeReason::tr("This is not JSON: %1 at byte %2.").arg(problem.errorString()).arg(problem.offset);
    return document;
}
