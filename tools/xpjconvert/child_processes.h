// What a process needs that has children: to learn of their end, to stop them, to read their
// output.
#pragma once

#include <chrono>
#include <string>

#include <csignal>

namespace XPJ {

// What a process prints or states, read by another one: a file in memory.
class SharedText {
public:
    SharedText();
    ~SharedText();
    SharedText(const SharedText&) = delete;
    SharedText& operator=(const SharedText&) = delete;

    // Negative when the system gives none.
    int Descriptor() const { return descriptor_; }
    // In the process that writes: it becomes a standard stream.
    void Replace(int stream);
    // All that was written.
    std::string Read() const;

private:
    int descriptor_;
};

// While it lives, `Wait` learns of the end of child processes. Without threads only: it blocks a
// signal.
class ChildSignal {
public:
    ChildSignal();
    ~ChildSignal();
    ChildSignal(const ChildSignal&) = delete;
    ChildSignal& operator=(const ChildSignal&) = delete;

    // Until a child has ended, an interrupt comes, or the time is over; may return earlier.
    void Wait(std::chrono::milliseconds time) const;
    // In a child: the signals as they were.
    void Restore() const;

private:
    sigset_t signal_;
    sigset_t oldMask_;
    struct sigaction oldAction_;
};

// A pipe that children hold the other end of: when this process closes it, or dies in whatever way,
// the children stop as if interrupted. A signal would reach those twice that a terminal or a
// scheduler has sent one already, and a second one ends a process without clearing up.
class Lifeline {
public:
    Lifeline();
    ~Lifeline();
    Lifeline(const Lifeline&) = delete;
    Lifeline& operator=(const Lifeline&) = delete;

    // Stops the children.
    void Close();
    // In a child.
    void Hold();

private:
    int ends_[2] = {-1, -1};
};

} // namespace XPJ
