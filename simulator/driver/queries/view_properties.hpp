#pragma once
// The properties of views under the names that scripts use.

#include "apple/uikit/view.hpp"
#include "script/expectation.hpp"

namespace sim::driver {

/// Reads [presented] PROPERTY and describes it; with `presented` the value that running animations show now.
/// Throws ScriptError for a name that no property has or that this view does not have.
script::Fact DescribeProperty(ui::View view, script::WordReader &words);

} // namespace sim::driver
