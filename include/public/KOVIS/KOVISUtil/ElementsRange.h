#pragma once

namespace kovis
{
/// A half-open range of elements, [begin, end).
class ElementsRange
{
public:
    ElementsRange() = default;
    ElementsRange(unsigned long begin, unsigned long end) : m_begin(begin), m_end(end < begin ? begin : end) {}

    unsigned long getBegin() const { return m_begin; }
    unsigned long getEnd() const { return m_end; }
    unsigned long getSize() const { return m_end - m_begin; }
    bool operator==(const ElementsRange&) const = default;

private:
    unsigned long m_begin = 0;
    unsigned long m_end = 0;
};
} // namespace kovis
