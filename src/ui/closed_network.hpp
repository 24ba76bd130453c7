// The program shows pages of anybody's making and has no use for a network.
#pragma once

namespace quorrel {

/// Closes the ways to the network that a filter of requests does not see, such as calls between
/// browsers. Before the application object is made.
void CloseNetwork();

}  // namespace quorrel
