// Sizes that titles and cells of the spacious look share.
#pragma once

namespace Ostrel::GUI::Detail
{

/// Between an edge and the text, at scale 1.
inline constexpr int kSpaciousTextOffset = 7;

} // namespace Ostrel::GUI::Detail
