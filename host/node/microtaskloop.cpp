// host/node/microtaskloop.cpp: see the header.
#include "host/node/microtaskloop.h"

#include "host/node/v8functions.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include <malloc.h>

namespace {

constexpr unsigned kLargestQueue = 512; // bytes; today's object takes 104

bool areFound(V8Functions const& v8)
{
    return v8.currentIsolate && v8.currentContext && v8.queueOf && v8.enqueue && v8.performCheckpoint && v8.isRunning &&
           v8.makeSuppression && v8.endSuppression;
}

/// Suppresses the loop of a queue while it exists.
class Suppression
{
public:
    Suppression(void* isolate, void* queue) { v8Functions().makeSuppression(m_scope, isolate, queue); }
    ~Suppression() { v8Functions().endSuppression(m_scope); }
    Suppression(Suppression const&) = delete;
    Suppression& operator=(Suppression const&) = delete;

private:
    alignas(16) unsigned char m_scope[128] = {}; // takes 2 words today
};

int intAt(unsigned char const* address)
{
    int value = 0;
    std::memcpy(&value, address, sizeof value);
    return value;
}

} // namespace

MicrotaskLoop& MicrotaskLoop::here()
{
    thread_local MicrotaskLoop loop;
    return loop;
}

bool MicrotaskLoop::isInside() const
{
    auto const& v8 = v8Functions();
    return v8.isRunning(v8.currentIsolate());
}

bool MicrotaskLoop::canRun()
{
    if (!areFound(v8Functions()))
        return false;
    if (!isInside())
        return true;
    if (m_state == State::kUntried)
        m_state = find() && runsTask() ? State::kWorks : State::kFails;
    return m_state == State::kWorks;
}

void MicrotaskLoop::run()
{
    if (!canRun())
        return;
    if (isInside())
        runInside();
    else
        v8Functions().performCheckpoint(v8Functions().currentIsolate());
}

bool MicrotaskLoop::find()
{
    auto const& v8 = v8Functions();
    m_isolate = v8.currentIsolate();
    void* context = v8.currentContext(m_isolate);
    m_queue = context ? v8.queueOf(context) : nullptr;
    if (!m_queue)
        return false;
    auto object = static_cast<unsigned char*>(m_queue);
    auto size = static_cast<unsigned>(std::min<size_t>(malloc_usable_size(m_queue), kLargestQueue));
    return findCount(object, size) && findFlag(object, size);
}

/// The one number that a scope raises by one, and that is the old one behind it.
bool MicrotaskLoop::findCount(unsigned char* object, unsigned size)
{
    unsigned char before[kLargestQueue];
    unsigned char during[kLargestQueue];
    std::memcpy(before, object, size);
    {
        Suppression scope(m_isolate, m_queue);
        std::memcpy(during, object, size);
    }
    if (std::memcmp(before, object, size) != 0)
        return false;
    auto differ = std::mismatch(before, before + size, during).first;
    auto offset = static_cast<unsigned>(differ - before) / sizeof(int) * sizeof(int);
    if (offset + sizeof(int) > size || intAt(during + offset) != intAt(before + offset) + 1)
        return false;
    auto rest = offset + sizeof(int);
    if (std::memcmp(before + rest, during + rest, size - rest) != 0)
        return false;
    m_count = reinterpret_cast<int*>(object + offset);
    return *m_count > 0; // the loop that runs is one such scope
}

/// The one byte without which the queue says that its loop does not run.
bool MicrotaskLoop::findFlag(unsigned char* object, unsigned size)
{
    int found = 0;
    for (auto byte = object; byte < object + size; ++byte) {
        if (*byte != 1)
            continue;
        *byte = 0;
        bool isFlag = !isInside();
        *byte = 1;
        if (isFlag) {
            m_flag = byte;
            ++found;
        }
    }
    return found == 1;
}

void MicrotaskLoop::runInside()
{
    int count = std::exchange(*m_count, 0);
    unsigned char flag = std::exchange(*m_flag, static_cast<unsigned char>(0));
    v8Functions().performCheckpoint(m_isolate);
    *m_count = count;
    *m_flag = flag;
}

/// Whether a task that is queued now runs in an inner run, after which the queue is as before.
bool MicrotaskLoop::runsTask()
{
    static thread_local bool hasRun; // the task may also run after this call
    hasRun = false;
    v8Functions().enqueue(
        m_isolate, [](void*) { hasRun = true; }, nullptr);
    runInside();
    return hasRun && isInside();
}
