#include "saver/model/InputRules.h"

namespace ambrio {
namespace {

bool Differs(float stored, float now) {
    return stored != 0 && stored != now;
}

}  // namespace

int MouseMoveRule::Move(float x, float y) {
    const int requests = (Differs(x_, x) ? 1 : 0) + (Differs(y_, y) ? 1 : 0);
    x_ = x;
    y_ = y;
    return requests;
}

bool StaysOrdinaryWindow(const std::wstring& commandLine) {
    return commandLine == L"/D" || commandLine == L"/d";
}

bool HidesPointer(const std::wstring& commandLine) {
    return commandLine != L"/D";
}

}  // namespace ambrio
