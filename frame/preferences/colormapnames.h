#pragma once

/** The colormaps by their ids, as the user sees them; the preference "Display.DefaultColormap" is an id. */
inline constexpr const char* COLORMAP_NAMES[] = {
    "NASA1", "NASA2", "HSV",  "JET",  "HOT",   "RAINBOW", "BTY",    "BTC",     "ZEBRA",
    "RED",   "GREEN", "BLUE", "GRAY", "Magma", "Inferno", "Plasma", "Viridis", "RGB LINEAR"};
