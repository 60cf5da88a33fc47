#include "query/CVorDPMNamePattern.h"

#include "query/CVorDPMData.h"

CVorDPMNamePattern::CVorDPMNamePattern(const QString& pattern)
    : m_text(pattern), m_plain(CVorDPMData::IsExistWildcard(pattern) != 0) {
    if (!m_plain) CVorDPMData::TransformToRegex(m_text);
}

bool CVorDPMNamePattern::Matches(const QString& name) const {
    return m_plain ? CVorDPMData::IsExist(name, m_text) != 0
                   : CVorDPMData::IsRegexEqual(name, m_text) != 0;
}
