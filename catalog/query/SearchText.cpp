#include "catalog/query/SearchText.h"

#include "catalog/query/ByteSearch.h"
#include "catalog/text/LowerCase.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t largestCopies = std::size_t(1) << 20;

void prefetchBeginning(std::string_view text)
{
    constexpr std::size_t cacheLine = 64;
    for (std::size_t at = 0; at < std::min(text.size(), prefetchedAhead); at += cacheLine)
        prefetch(text.data() + at);
}

// Adds the places of what is found in a block, whose first package has the given one.
void findInBlock(const SearchedTexts& block, const BytePattern& pattern, std::uint32_t firstPlace,
    std::vector<std::uint32_t>& places)
{
    std::uint32_t record = 0;
    std::uint32_t notFoundYet = 0;
    findEach(block.bytes(), pattern, [&](std::size_t at) -> std::size_t {
        const SearchedTexts::Found found = block.recordsAt(at, record);
        record = found.first;
        for (notFoundYet = std::max(notFoundYet, found.first); notFoundYet <= found.last; ++notFoundYet)
            places.push_back(firstPlace + notFoundYet);
        return found.end;
    });
}

} // namespace

SearchText::SearchText(std::vector<std::shared_ptr<const PackageOrigin>> origins)
{
    m_blocks.reserve(origins.size());
    for (std::shared_ptr<const PackageOrigin>& origin : origins) {
        const SearchedTexts* const searched = &origin->searched;
        m_blocks.emplace_back(std::move(origin), searched);
    }
}

void SearchText::add(const VeskPackage& package)
{
    if (!m_copies || m_copies->byteSize() > largestCopies) {
        m_copies = std::make_shared<SearchedTexts>();
        m_blocks.push_back(m_copies);
    }
    for (const VeskPackage::Text which :
        { VeskPackage::Text::Author, VeskPackage::Text::Desc, VeskPackage::Text::PackageID, VeskPackage::Text::Name })
        m_copies->add(package.utf8(which));
    m_copies->endRecord(SearchedTexts::Source::Own, SearchedTexts::Source::Own);
}

QByteArray SearchText::folded(const QString& query)
{
    return query.isValidUtf16() ? lowered(query) : QByteArray();
}

std::vector<std::uint32_t> SearchText::find(std::string_view foldedQuery) const
{
    const BytePattern pattern(foldedQuery);
    std::vector<std::uint32_t> places;
    std::uint32_t firstPlace = 0;
    for (auto block = m_blocks.begin(); block != m_blocks.end(); ++block) {
        if (block + 1 != m_blocks.end())
            prefetchBeginning((*(block + 1))->bytes());
        findInBlock(**block, pattern, firstPlace, places);
        firstPlace += (*block)->recordCount();
    }
    return places;
}
