/// Free functions on strings, for everything else in the suite: all subjects at once.
///
/// A source includes the subjects it uses. Nearly all functions exist for narrow and for wide texts
/// and do the same for both; where the two differ, the comment says so. A range is given by `pos`,
/// an index from 0, and `count` characters; all ones (`npos`) as a count means the rest of the
/// text, and a range may reach past the end. All functions use only their arguments and, where the
/// comment says so, the process locale, so any thread may call them.
#pragma once

#include "libraries/corelib/source/text/StringToolsCharacters.h"
#include "libraries/corelib/source/text/StringToolsConvert.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "libraries/corelib/source/text/StringToolsEscape.h"
#include "libraries/corelib/source/text/StringToolsHash.h"
#include "libraries/corelib/source/text/StringToolsNumbers.h"
#include "libraries/corelib/source/text/StringToolsSearch.h"
#include "libraries/corelib/source/text/StringToolsSplit.h"
