/// Templates of what trees of names throw.
#pragma once

#include "libraries/corelib/source/diagnostics/Template.h"

namespace TarvikFilelib::messages {

inline constexpr TarvikCorelib::Template<0> nodeOutOfMemory = "@out-of-memory{Out of memory};";
inline constexpr TarvikCorelib::Template<2> nodeNotFound =
    R"(@filetreenode.get.node-not-found{Node "%" not found as child of "%"};)";
inline constexpr TarvikCorelib::Template<2> cannotAddToFile =
    "@filetreenode.add-child.cannot-add-to-file{Trying to add child node \"%\" to parent node "
    "\"%\" - which is a file};";
inline constexpr TarvikCorelib::Template<1> insertNodeNotFound =
    "@filetreenode.insert-child.node-not-found{Trying to insert under \"%\" - which doesn't "
    "exist};";
inline constexpr TarvikCorelib::Template<1> insertEmptyParameter =
    R"(@filetreenode.insert-child.empty-parameter{Parameter "%" is empty};)";

}  // namespace TarvikFilelib::messages
