#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

// A pattern to be looked for in texts of megabytes. The two of its bytes that are rarest in names and descriptions are
// compared at 64 places at once, and only where both stand is the whole pattern compared: with its first and last byte
// instead, "tool manager" took 3.5 ms over the search text of 63,000 packages, and takes 0.7.
class BytePattern
{
public:
    static constexpr std::size_t placesAtOnce = 64;

    // Not empty; it must outlive this.
    explicit BytePattern(std::string_view pattern);

    // Which of the 64 places from this one on may be where the pattern stands, the first one in the lowest bit. There
    // must be 63 more bytes than the pattern has.
    std::uint64_t candidatesFrom(const char* place) const;
    bool standsAt(const char* place) const;
    std::string_view bytes() const { return m_pattern; }

private:
    std::string_view m_pattern;
    std::size_t m_rarest = 0;
    std::size_t m_nextRarest = 0;
};

// Calls goOnBehind(place) with the first place of the pattern, and with the next one from where that told to go on.
template <class GoOnBehind>
void findEach(std::string_view text, const BytePattern& pattern, const GoOnBehind& goOnBehind)
{
    constexpr std::size_t places = BytePattern::placesAtOnce;
    std::size_t from = 0;
    // A single byte is found as fast by the library, which also does the end of the text.
    while (pattern.bytes().size() > 1 && from + places + pattern.bytes().size() - 1 <= text.size()) {
        const char* const begin = text.data() + from;
        std::size_t next = places;
        for (std::uint64_t candidates = pattern.candidatesFrom(begin); candidates != 0;) {
            const auto offset = static_cast<std::size_t>(std::countr_zero(candidates));
            candidates &= candidates - 1;
            if (!pattern.standsAt(begin + offset))
                continue;
            const std::size_t told = goOnBehind(from + offset) - from;
            candidates = told < places ? candidates & (~std::uint64_t(0) << told) : 0;
            next = told < places ? places : told;
        }
        from += next;
    }
    for (std::size_t at = text.find(pattern.bytes(), from); at < text.size();)
        at = text.find(pattern.bytes(), goOnBehind(at));
}
