#pragma once

// The signals that this program was started to notice. Libraries make the whole process ignore some later, a broken
// pipe above all, and a child would inherit that: a script that it runs would no longer end with the pipe it writes
// into.
namespace SignalDispositions {

// Keeps in mind which signals are ignored. First thing in main, before any library or thread.
void noteAtStart();

// Before a child is spawned: a signal that came to be ignored since the start gets a handler that does nothing instead,
// which is the same to this process and stands for the default in its children. Does nothing unless the start was
// noted. Any thread.
void restoreForChildren();

} // namespace SignalDispositions
