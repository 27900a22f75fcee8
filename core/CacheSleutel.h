#pragma once

namespace tk {

// The fixed RC4 key of the offline cache (\Data\data.tijdelijk): the data layer seals and opens
// the cache with it, and the safe-mode check reads the maintenance password from it.
inline constexpr char CacheSleutel[] = "Tafelkrater_VQXZ";

} // namespace tk
