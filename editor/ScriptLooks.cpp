// The colours of the look classes, and the look map's bookkeeping through edits.
#include "editor/ScriptLooks.h"

#include <algorithm>

Rgb inkColour(Ink ink) {
    switch (ink) {
    case Ink::Plain:
        return {0, 0, 0};
    case Ink::Number:
        return {255, 0, 0};
    case Ink::Command:
        return {20, 0, 150};
    case Ink::Comment:
        return {0, 150, 0};
    case Ink::Error:
        return {166, 0, 0};
    case Ink::Typed:
        return {0, 0, 255};
    }
    return {0, 0, 0};
}

Look LookMap::at(int pos) const {
    if (pos < 0 || pos >= size()) return {};
    return m_looks[size_t(pos)];
}

Look LookMap::atCaret(int selStart, int selLength) const {
    if (selLength > 0 || selStart == 0) return at(selStart);
    return at(selStart - 1);
}

void LookMap::reset(int length) {
    m_looks.assign(size_t(std::max(length, 0)), Look{});
}

void LookMap::edit(int pos, int removed, int added) {
    pos = std::clamp(pos, 0, size());
    removed = std::clamp(removed, 0, size() - pos);
    const Look inserted = m_insertion ? *m_insertion : at(pos - 1);
    auto first = m_looks.begin() + pos;
    m_looks.erase(first, first + removed);
    m_looks.insert(m_looks.begin() + pos, size_t(std::max(added, 0)), inserted);
}

std::pair<int, int> LookMap::assign(std::vector<Look> looks) {
    const size_t common = std::min(looks.size(), m_looks.size());
    size_t first = 0;
    while (first < common && looks[first] == m_looks[first])
        ++first;
    size_t tailNew = looks.size(), tailOld = m_looks.size();
    while (tailNew > first && tailOld > first && looks[tailNew - 1] == m_looks[tailOld - 1])
        --tailNew, --tailOld;
    m_looks = std::move(looks);
    if (first == tailNew && first == tailOld) return {int(first), int(first)};
    return {int(first), int(std::max(tailNew, first + (tailNew == first ? 1 : 0)))};
}
