#pragma once

// How many files and connections this process may have open at once. Programs are started with room for some thousand,
// which is kept so low for those that cannot count further; this one may need more, and may have all that the system
// gives it.
namespace DescriptorLimit {

// Raises the limit as far as it goes. First thing in main, before any library or thread.
void raiseAtStart();

// While one lives, the limit is the one from before raiseAtStart(): who starts a child makes one for that moment, since
// a child inherits what its parent has then. What is open stays open. Any thread.
class OfChildren
{
public:
    OfChildren();
    OfChildren(const OfChildren&) = delete;
    OfChildren& operator=(const OfChildren&) = delete;
    ~OfChildren();
};

} // namespace DescriptorLimit
