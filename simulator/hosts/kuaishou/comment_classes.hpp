#pragma once
// Kuaishou's private classes of the comment input.

namespace sim::hosts::kuaishou {

/// Registers the services' base class, the services, and the preview component.
void RegisterCommentClasses();

} // namespace sim::hosts::kuaishou
