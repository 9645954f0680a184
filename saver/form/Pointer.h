#pragma once

namespace ambrio {

// Both go on until the system's display count has passed its mark, whatever it was before.
void ShowPointerSurely();
void HidePointerSurely();

}  // namespace ambrio
