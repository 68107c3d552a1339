// SPDX-License-Identifier: MIT
//
// Owning pointers for what GLib counts or allocates.
#pragma once

#include <gio/gio.h>

#include <memory>

namespace trovell {

struct GObjectUnref {
    void operator()(gpointer object) const { g_object_unref(object); }
};

/// Owns one reference.
template <class T> using GObjectPointer = std::unique_ptr<T, GObjectUnref>;

template <auto free> struct GFree {
    template <class T> void operator()(T* memory) const { free(memory); }
};

template <class T, auto free = g_free> using GPointer = std::unique_ptr<T, GFree<free>>;
using GVariantPointer = GPointer<GVariant, g_variant_unref>;

} // namespace trovell
