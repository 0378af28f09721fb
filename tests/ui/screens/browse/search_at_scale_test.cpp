// The Search screen on a catalog of very many categories: what a row costs, counted in pieces of memory, for a source
// decides how many there are.
#include "ui/screens/browse/SearchViewController.h"

#include "tests/ui/screens/ScreenWorld.h"

#include <atomic>
#include <cstdlib>
#include <memory>
#include <new>

namespace {

std::atomic<std::size_t> pieces = 0;

class SearchAtScale : public ScreenTest
{
protected:
    // How many pieces of memory are taken to count the rows and make one, with so many categories.
    std::size_t piecesOfARow(int categories)
    {
        for (int number = 0; number < categories; ++number)
            addPackage(QStringLiteral("Package"), QStringLiteral("Section %1").arg(number));
        auto* screen = show(new SearchViewController(*manager, *installer));
        // No table takes them.
        const std::unique_ptr<kit::TableViewCell> first(screen->cellForRowAtIndexPath({ 0, 1 }));
        const std::size_t before = pieces;
        screen->numberOfRowsInSection(0);
        const std::unique_ptr<kit::TableViewCell> second(screen->cellForRowAtIndexPath({ 0, 1 }));
        return pieces - before;
    }
};

} // namespace

void* operator new(std::size_t size)
{
    ++pieces;
    if (void* const memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

// As the one above by itself does, but for a sanitizer's.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept
{
    ++pieces;
    return std::malloc(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}

TEST_F(SearchAtScale, makesARowWithoutARecordForEveryCategoryThereIs)
{
    constexpr int many = 2000;
    EXPECT_LT(piecesOfARow(many), std::size_t(many));
}
