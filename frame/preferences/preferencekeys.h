#pragma once

#include "frame/packs/packkey.h"

/** The settings of the user that the frame itself reads. Modules declare theirs beside their code. */
namespace PreferenceKey {

/** Off: to compile lists takes two to five times as long as to fill buffers, and no frame is faster by them
 *  (view_bench). */
inline constexpr SKey<bool> USE_DISPLAY_LISTS{"Basic.UseDisplayLists", false};
inline constexpr SKey<qint64> SELECTION_AREA{"Basic.SelectionArea", 4}; // pick radius [pixels]
inline constexpr SKey<bool> USE_OUTLINE_COLOR{"Basic.UseOutlineColor", true};
inline constexpr SKey<double> MOUSE_SENSITIVITY{"Basic.MouseSensitivity", 0.06};
inline constexpr SKey<double> KEYBOARD_SENSITIVITY{"Basic.KeyboardSensitivity", 0.1};
inline constexpr SKey<qint64> ZOOM_SENSITIVITY{"Basic.ZoomSensitivity", 50};
inline constexpr SKey<bool> ZOOM_ON_MOUSE{"Basic.ZoomOnMouse", true}; // zoom about the pointer
inline constexpr SKey<bool> FLIP_ZOOM_DIRECTION{"Basic.FlipZoomDirection", false};
inline constexpr SKey<qint64> KEY_PRESET{"Basic.KeyPreset", 0}; // row of the accelerator presets

inline constexpr SKey<bool> HIGHLIGHT_IN_ANALYZE{"Display.HighlightSelectInAnalyze", false}; // as wireframe
inline constexpr SKey<bool> HIGHLIGHT_OUTLINE{"Display.HighlightSelectOutline", true};
inline constexpr SKey<qint64> POINT_SIZE{"Display.PointSize", 8};           // [pixels]
inline constexpr SKey<double> LINE_THICKNESS{"Display.LineThickness", 2.0}; // [pixels]
inline constexpr SKey<bool> SHOW_AXES{"Display.ShowAxes", true};
/** 0 hide, 1 always, 2 on rotation. */
inline constexpr SKey<qint64> ROTATION_AXIS_VISIBILITY{"Display.RotationAxisVisibility", 1};
inline constexpr SKey<bool> SHOW_SCALING{"Display.ShowScaling", false};
inline constexpr SKey<qint64> DEFAULT_COLORMAP{"Display.DefaultColormap", 17};

/** Of axes and scale with their texts; invalid: black or white, what stands out from the background. */
inline constexpr SKey<QColor> AXES_COLOR{"Color.AxesColor", QColor()};
inline constexpr SKey<QColor> HIGHLIGHT_COLOR{"Color.HighlightColor", QColor(255, 255, 255)};
inline constexpr SKey<QColor> SELECT_COLOR{"Color.SelectColor", QColor(255, 0, 255)};
inline constexpr SKey<QColor> OUTLINE_COLOR{"Color.OutlineColor", QColor(51, 153, 255)};
inline constexpr SKey<QColor> PREVIEW_COLOR{"Color.PreviewColor", QColor(255, 153, 51)};
/** 0 to 2 from the middle of the background outwards, 3 the background of captures. */
inline constexpr SKey<QColor> BACKGROUND_COLORS[] = {
    {"Color.BG.0", QColor(105, 146, 182)},
    {"Color.BG.1", QColor(81, 113, 150)},
    {"Color.BG.2", QColor(16, 56, 121)},
    {"Color.BG.3", QColor(255, 255, 255)},
};

inline constexpr SKey<qint64> FONT_INCREMENT{"Data.FontInc", 0};                  // [points], may be negative
inline constexpr SKey<qint64> MEMORY_LIMIT{"Data.MemoryLimitByte", 0};            // [bytes], 0 for unlimited
inline constexpr SKey<qint64> DEBUG_LEVEL{"Data.DebugLevel", 0};                  // see CMessageSink
inline constexpr SKey<double> ANGLE_LIMIT{"Data.AngleLimit", 0.5235987755982988}; // [radians]
inline constexpr SKey<qint64> DEFAULT_FACE{"Data.DefaultFace", 4};                // 0 to 5 a face, 6 all

inline constexpr SKey<qint64> THEME{"GUI.Theme", 0};                  // index of the style sheet
inline constexpr SKey<qint64> SPLITTER_WIDTH{"GUI.SplitterWidth", 2}; // [pixels]

inline const SKey<QStringList> RECENT_FILES{"IO.RecentFiles", {}}; // newest first
inline constexpr int RECENT_FILES_LIMIT = 10;                      // entries that the list has at most
inline constexpr SKey<const char*> RECENT_DIRECTORY{"IO.RecentDirectory", ""};

/** The remote computers; the ids are the child names of this sub-pack. */
inline constexpr const char* REMOTE_PACK = "Remote";
inline constexpr SNumberedKey<const char*> REMOTE_NAME{"Remote.%1.Name", ""};
inline constexpr SNumberedKey<const char*> REMOTE_HOST{"Remote.%1.Host", ""};
inline constexpr SNumberedKey<qint64> REMOTE_PORT{"Remote.%1.Port", 22}; // 1 to 65535
inline constexpr SNumberedKey<const char*> REMOTE_USER{"Remote.%1.User", ""};
inline constexpr SNumberedKey<qint64> REMOTE_AUTHENTICATION{"Remote.%1.AuthenticationType", 0};
inline constexpr SNumberedKey<const char*> REMOTE_PASSWORD{"Remote.%1.Password", ""}; // never logged
inline constexpr SNumberedKey<const char*> REMOTE_KEY_FILE{"Remote.%1.KeyFile", ""};

} // namespace PreferenceKey
