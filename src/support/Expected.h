// SPDX-License-Identifier: MIT
//
// The result of an operation that can fail: a value, or one member of an error enumeration.
#pragma once

#include <tl/expected.hpp>

namespace trovell {

template <class T, class E> using Expected = tl::expected<T, E>;

template <class E> using Unexpected = tl::unexpected<E>;

} // namespace trovell
