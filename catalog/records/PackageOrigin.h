#pragma once

#include "catalog/records/SearchedTexts.h"
#include "catalog/records/VeskRepository.h"
#include "catalog/text/TextPool.h"

// What the packages of one block have in common: where their texts stand, and the source they come from.
struct PackageOrigin
{
    using Handle = TextPool::Handle;

    SearchedTexts searched;
    // The others, and those that are not themselves among the searched ones.
    TextPool texts;
    VeskRepositoryPtr repository;

    Handle addSearched(std::string_view text)
    {
        const Handle handle = searched.add(text);
        return handle == TextPool::null ? texts.add(text) : handle | isSearched;
    }
    std::string_view text(Handle handle) const
    {
        return (handle & isSearched) != 0 ? searched.text(handle & ~isSearched) : texts.text(handle);
    }
    std::size_t byteSize() const { return searched.byteSize() + texts.size(); }
    void shrink()
    {
        searched.shrink();
        texts.shrink();
    }

private:
    // A bit that no pool has in its handles.
    static constexpr Handle isSearched = Handle(1) << 31;
};
