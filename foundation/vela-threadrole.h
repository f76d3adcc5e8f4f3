// foundation/vela-threadrole.h: which thread a function belongs to. A role is a capability that clang checks at compile
// time (-Wthread-safety) and that assertions check at run time where the compiler can not see the thread: in callbacks,
// virtual functions and entry points.
#pragma once

#include <atomic>
#include <cassert>

#include <pthread.h>

#ifdef __clang__
#define TARN_THREAD_ATTRIBUTE(attribute) __attribute__((attribute))
#else
#define TARN_THREAD_ATTRIBUTE(attribute)
#endif

/// Marks a class whose objects are roles.
#define TARN_ROLE TARN_THREAD_ATTRIBUTE(capability("role"))
/// Behind the parameter list: only a thread that holds the role may call the function.
#define TARN_ON(...) TARN_THREAD_ATTRIBUTE(requires_capability(__VA_ARGS__))
/// Behind the parameter list: after a call of the function the compiler takes the role for held. Without an argument
/// the role is the object whose member is called.
#define TARN_PROVES(...) TARN_THREAD_ATTRIBUTE(assert_capability(__VA_ARGS__))
/// Behind the name of a variable: only a thread that holds the role may read or write it.
#define TARN_GUARDED_BY(...) TARN_THREAD_ATTRIBUTE(guarded_by(__VA_ARGS__))

/// A part that one thread at a time plays. While nobody has claimed it every thread counts as its holder, so that code
/// which is tested alone, without those threads, passes its own checks. Any thread may call any member.
class TARN_ROLE velaThreadRole
{
public:
    /// The calling thread takes the role, which must be free or its own.
    void claim() TARN_PROVES()
    {
        [[maybe_unused]] pthread_t const before = m_holder.exchange(pthread_self(), std::memory_order_relaxed);
        assert(before == kNobody || pthread_equal(before, pthread_self()));
    }
    /// Gives the role back, before its thread ends: the system may give the id of an ended thread to the next one.
    /// Called by the holder, or by any thread when the role is free.
    void release()
    {
        assert(isHeld());
        m_holder.store(kNobody, std::memory_order_relaxed);
    }
    /// Whether the calling thread may act in the role: it has claimed it, or nobody has.
    bool isHeld() const
    {
        // A thread always sees its own claim and release, and no other thread's claim reads as its own.
        pthread_t const holder = m_holder.load(std::memory_order_relaxed);
        return holder == kNobody || pthread_equal(holder, pthread_self());
    }

private:
    static constexpr pthread_t kNobody = 0; ///< no thread has this id

    std::atomic<pthread_t> m_holder{kNobody};
};

/// The thread that runs the toolkit's event loop.
extern velaThreadRole velaGuiRole;
/// The thread that runs the interpreter.
extern velaThreadRole velaScriptRole;

/// Ends the program on a wrong thread, in builds with assertions.
inline void assertOnGuiThread() TARN_PROVES(velaGuiRole) { assert(velaGuiRole.isHeld()); }
inline void assertOnScriptThread() TARN_PROVES(velaScriptRole) { assert(velaScriptRole.isHeld()); }
