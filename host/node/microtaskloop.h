// host/node/microtaskloop.h: enters the interpreter's loop over its microtasks again, inside of one of them.
//
// The loop is guarded by two fields of the queue object: a flag that it runs, and a count of scopes that suppress it.
// For the length of an inner run both are cleared. Where they are is not documented, so it is found out at run time,
// in the queue itself: the count is what a scope made for the purpose changes, and the flag is the byte without which
// the queue says that it does not run. Finding them only reads, but for a byte that is changed while nothing but that
// question is asked. They count as found when a task of our own has run through them.
#pragma once

/// One per script thread, since each has a queue of its own. Script thread, inside a call from script.
class MicrotaskLoop
{
public:
    /// The calling thread's.
    static MicrotaskLoop& here();

    /// Whether run() runs anything where the thread stands now. Inside the loop the first call tries it.
    bool canRun();
    /// Runs all tasks in the queue.
    void run();

private:
    enum class State
    {
        kUntried,
        kWorks,
        kFails
    };

    bool isInside() const;
    bool find();
    bool findCount(unsigned char* object, unsigned size);
    bool findFlag(unsigned char* object, unsigned size);
    void runInside();
    bool runsTask();

    State m_state = State::kUntried;
    void* m_isolate = nullptr;
    void* m_queue = nullptr;         // V8's; lives as long as the isolate
    int* m_count = nullptr;          // of suppressing scopes, in *m_queue
    unsigned char* m_flag = nullptr; // whether the loop runs, in *m_queue
};
