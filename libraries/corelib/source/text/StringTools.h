/// Free functions on strings, for everything else in the suite.
///
/// Nearly all stand twice, for narrow and for wide strings, and do the same for both; where the two
/// differ, the comment says so. A stretch is given by `pos`, from 0, and `count` characters; all
/// ones (`npos`) as a count means all that are left, and a stretch may reach past the end.
#pragma once

#include "libraries/corelib/source/text/StringToolsCharacters.h"
#include "libraries/corelib/source/text/StringToolsConvert.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "libraries/corelib/source/text/StringToolsEscape.h"
#include "libraries/corelib/source/text/StringToolsHash.h"
#include "libraries/corelib/source/text/StringToolsNumbers.h"
#include "libraries/corelib/source/text/StringToolsSearch.h"
#include "libraries/corelib/source/text/StringToolsSplit.h"
