// host/native/nativeobjectref.h: a handle that keeps a script object. Copy it freely, on any thread.
#pragma once

#include <cstddef>
#include <utility>

class NativeObject;

/// Keeps one NativeObject, or none.
class NativeObjectRef
{
public:
    NativeObjectRef() = default;
    NativeObjectRef(std::nullptr_t) {}
    /// Keeps `object` once more.
    explicit NativeObjectRef(NativeObject* object) : m_object(object) { keep(); }
    /// Takes over a `keep` that the caller already holds.
    static NativeObjectRef adopt(NativeObject* object);
    NativeObjectRef(NativeObjectRef const& other) : m_object(other.m_object) { keep(); }
    NativeObjectRef(NativeObjectRef&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    NativeObjectRef& operator=(NativeObjectRef other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~NativeObjectRef() { letGo(); }

    NativeObject* get() const { return m_object; }
    NativeObject* operator->() const { return m_object; }
    NativeObject& operator*() const { return *m_object; }
    explicit operator bool() const { return m_object != nullptr; }
    bool operator==(NativeObjectRef const& other) const = default;

    /// Gives the kept object away: the caller now holds the `keep`.
    NativeObject* release() { return std::exchange(m_object, nullptr); }

private:
    void keep() const;
    void letGo() const;

    NativeObject* m_object = nullptr;
};
