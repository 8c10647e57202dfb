#pragma once

/** Who we are: the identity under which settings are kept and that the user sees. */
namespace ApplicationInfo {
inline constexpr const char* ORGANISATION = "NOVRIK";
inline constexpr const char* NAME = "Zento";
inline constexpr const char* VERSION = "2026.1.2-0";
} // namespace ApplicationInfo
