#include "view/tools/viewtool.h"

#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"

SPointerEvent SViewState::Held() const
{
    const SInputState& state = input.State();
    const qint64 nPreset = Get(CPreferences::Instance(), PreferenceKey::KEY_PRESET);
    return {cursor, Qt::NoButton, state.buttons, state, FindAction(nPreset, state)};
}
