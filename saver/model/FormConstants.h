#pragma once

#include <chrono>

namespace ambrio {

// The caption of the full-screen form; a second instance finds the first one by it.
inline constexpr wchar_t kScreenSaverCaption[] = L"Ambrio Screen Saver";

// The intervals of the form's timers.
inline constexpr std::chrono::milliseconds kDoTheBizInterval{150};
inline constexpr std::chrono::milliseconds kKeepOnRunninInterval{100};
inline constexpr std::chrono::milliseconds kEndInterval{1000};
// From picture to picture between two steps of the animation: 33 a second, as the eye wants it.
inline constexpr std::chrono::milliseconds kPictureInterval{30};

// So many steps of the animation lie between two times that the panel tells other programs what it
// shows: half a second.
inline constexpr int kStepsPerTelling = 5;

// ShowCursor counts: the pointer is shown until the count is this or more, hidden until it is this
// or less, so that it stays so whatever else the process or its libraries do.
inline constexpr int kPointerShownCount = 6;
inline constexpr int kPointerHiddenCount = -6;

}  // namespace ambrio
