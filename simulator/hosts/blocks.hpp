#pragma once
// The host's own blocks under the names that scripts give them: "block 1", "block 2".

#include "objc/block.hpp"
#include "script/words.hpp"

namespace sim::hosts {

/// Reads the N of "block N". That block takes what a completion takes and does nothing; it is made when it is first
/// named and lives as long as the host. Throws ScriptError for a number that counts no block.
objc::id ReadBlock(WordReader &words);

/// A block's words, as in `block 1`; `<block>` for one that is not the host's, `nil` for none.
Fact NameOfBlock(objc::id block);

} // namespace sim::hosts
