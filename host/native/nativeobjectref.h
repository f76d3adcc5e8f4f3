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
    explicit NativeObjectRef(NativeObject* object) : object_(object) { keep(); }
    /// Takes over a `keep` that the caller already holds.
    static NativeObjectRef adopt(NativeObject* object);
    NativeObjectRef(NativeObjectRef const& other) : object_(other.object_) { keep(); }
    NativeObjectRef(NativeObjectRef&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    NativeObjectRef& operator=(NativeObjectRef other) noexcept
    {
        std::swap(object_, other.object_);
        return *this;
    }
    ~NativeObjectRef() { letGo(); }

    NativeObject* get() const { return object_; }
    NativeObject* operator->() const { return object_; }
    NativeObject& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }
    bool operator==(NativeObjectRef const& other) const = default;

    /// Gives the kept object away: the caller now holds the `keep`.
    NativeObject* release() { return std::exchange(object_, nullptr); }

private:
    void keep() const;
    void letGo() const;

    NativeObject* object_ = nullptr;
};
