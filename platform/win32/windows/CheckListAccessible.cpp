#include "platform/win32/windows/CheckListAccessible.h"

#include <atomic>
#include <memory>
#include <string>
#include <utility>

#include "platform/win32/AccessibilityHeaders.h"
#include "platform/win32/system/SystemLibrary.h"
#include "platform/win32/windows/WindowText.h"

namespace ambrio {
namespace {

int CountOf(HWND listBox) {
    return static_cast<int>(SendMessageW(listBox, LB_GETCOUNT, 0, 0));
}

struct Releaser {
    void operator()(IUnknown* object) const { object->Release(); }
};
using UniqueAccessible = std::unique_ptr<IAccessible, Releaser>;

// The system's interfaces have no virtual destructors; nobody destroys this class through one.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Lives as long as somebody uses it, which may be longer than the list box: that then has no
// entries any more.
class CheckListAccessible final : public IAccessible {
  public:
    CheckListAccessible(HWND listBox, UniqueAccessible standard)
        : listBox_(listBox), standard_(std::move(standard)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++users_; }
    ULONG STDMETHODCALLTYPE Release() override;

    // What each entry is.
    HRESULT STDMETHODCALLTYPE get_accChildCount(long* count) override;
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override;
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override;
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override;
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override;
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override;
    HRESULT STDMETHODCALLTYPE accLocation(long* left, long* top, long* width, long* height,
                                          VARIANT child) override;

    // The system's own answers.
    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override {
        return standard_->get_accParent(parent);
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
        return standard_->get_accValue(child, value);
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) override {
        return standard_->get_accDescription(child, description);
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* help) override {
        return standard_->get_accHelp(child, help);
    }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, long* topic) override {
        return standard_->get_accHelpTopic(file, child, topic);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* keys) override {
        return standard_->get_accKeyboardShortcut(child, keys);
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* focus) override {
        return standard_->get_accFocus(focus);
    }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* selection) override {
        return standard_->get_accSelection(selection);
    }
    HRESULT STDMETHODCALLTYPE accSelect(long how, VARIANT child) override {
        return standard_->accSelect(how, child);
    }
    HRESULT STDMETHODCALLTYPE accNavigate(long where, VARIANT start, VARIANT* end) override {
        return standard_->accNavigate(where, start, end);
    }
    HRESULT STDMETHODCALLTYPE accHitTest(long left, long top, VARIANT* found) override {
        return standard_->accHitTest(left, top, found);
    }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT child, BSTR name) override {
        return standard_->put_accName(child, name);
    }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) override {
        return standard_->put_accValue(child, value);
    }

    // Nobody calls these by name.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }

  private:
    // Entries are counted from 1; CHILDID_SELF is the list box. -1 for what is no entry.
    [[nodiscard]] int EntryOf(const VARIANT& child) const;

    HWND listBox_;
    UniqueAccessible standard_;
    std::atomic<ULONG> users_ = 1;
};

#pragma GCC diagnostic pop

bool IsSelf(const VARIANT& child) {
    return child.vt == VT_I4 && child.lVal == CHILDID_SELF;
}

HRESULT Give(BSTR* target, const std::wstring& text) {
    *target = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return *target == nullptr ? E_OUTOFMEMORY : S_OK;
}

HRESULT Give(VARIANT* target, long number) {
    target->vt = VT_I4;
    target->lVal = number;
    return S_OK;
}

HRESULT CheckListAccessible::QueryInterface(REFIID id, void** object) {
    if (!IsEqualIID(id, __uuidof(IUnknown)) && !IsEqualIID(id, __uuidof(IDispatch)) &&
        !IsEqualIID(id, __uuidof(IAccessible))) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    *object = static_cast<IAccessible*>(this);
    AddRef();
    return S_OK;
}

// The last user takes it away; the system's rules for such objects leave no other owner.
ULONG CheckListAccessible::Release() {
    const ULONG users = --users_;
    if (users == 0) {
        const std::unique_ptr<CheckListAccessible> last(this);
    }
    return users;
}

int CheckListAccessible::EntryOf(const VARIANT& child) const {
    const bool isEntry =
        child.vt == VT_I4 && child.lVal > CHILDID_SELF && child.lVal <= CountOf(listBox_);
    return isEntry ? static_cast<int>(child.lVal) - 1 : -1;
}

HRESULT CheckListAccessible::get_accChildCount(long* count) {
    *count = CountOf(listBox_);
    return S_OK;
}

// The entries have no objects of their own.
HRESULT CheckListAccessible::get_accChild(VARIANT child, IDispatch** object) {
    *object = nullptr;
    return EntryOf(child) < 0 ? E_INVALIDARG : S_FALSE;
}

HRESULT CheckListAccessible::get_accName(VARIANT child, BSTR* name) {
    if (IsSelf(child)) {
        return standard_->get_accName(child, name);
    }
    const int entry = EntryOf(child);
    return entry < 0 ? E_INVALIDARG : Give(name, ListEntryText(listBox_, entry));
}

HRESULT CheckListAccessible::get_accRole(VARIANT child, VARIANT* role) {
    if (IsSelf(child)) {
        return Give(role, ROLE_SYSTEM_LIST);
    }
    return EntryOf(child) < 0 ? E_INVALIDARG : Give(role, ROLE_SYSTEM_CHECKBUTTON);
}

HRESULT CheckListAccessible::get_accState(VARIANT child, VARIANT* state) {
    if (IsSelf(child)) {
        return standard_->get_accState(child, state);
    }
    const int entry = EntryOf(child);
    if (entry < 0) {
        return E_INVALIDARG;
    }
    long all = STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE;
    if (IsEntryTicked(listBox_, entry)) {
        all |= STATE_SYSTEM_CHECKED;
    }
    if (SendMessageW(listBox_, LB_GETCURSEL, 0, 0) == entry) {
        all |= STATE_SYSTEM_SELECTED | (GetFocus() == listBox_ ? STATE_SYSTEM_FOCUSED : 0);
    }
    RECT place{};
    RECT inside{};
    RECT seen{};
    SendMessageW(listBox_, LB_GETITEMRECT, static_cast<WPARAM>(entry),
                 reinterpret_cast<LPARAM>(&place));
    GetClientRect(listBox_, &inside);
    if (IntersectRect(&seen, &place, &inside) == FALSE) {
        all |= STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE;
    }
    return Give(state, all);
}

HRESULT CheckListAccessible::get_accDefaultAction(VARIANT child, BSTR* action) {
    const int entry = EntryOf(child);
    if (entry < 0) {
        return IsSelf(child) ? standard_->get_accDefaultAction(child, action) : E_INVALIDARG;
    }
    return Give(action, IsEntryTicked(listBox_, entry) ? L"Uncheck" : L"Check");
}

HRESULT CheckListAccessible::accDoDefaultAction(VARIANT child) {
    const int entry = EntryOf(child);
    if (entry < 0) {
        return IsSelf(child) ? DISP_E_MEMBERNOTFOUND : E_INVALIDARG;
    }
    ToggleEntry(listBox_, entry);
    return S_OK;
}

HRESULT CheckListAccessible::accLocation(long* left, long* top, long* width, long* height,
                                         VARIANT child) {
    const int entry = EntryOf(child);
    if (entry < 0) {
        return IsSelf(child) ? standard_->accLocation(left, top, width, height, child)
                             : E_INVALIDARG;
    }
    RECT place{};
    SendMessageW(listBox_, LB_GETITEMRECT, static_cast<WPARAM>(entry),
                 reinterpret_cast<LPARAM>(&place));
    MapWindowPoints(listBox_, nullptr, reinterpret_cast<POINT*>(&place), 2);
    *left = place.left;
    *top = place.top;
    *width = place.right - place.left;
    *height = place.bottom - place.top;
    return S_OK;
}

UniqueAccessible StandardObject(const SystemLibrary& oleacc, HWND listBox) {
    using Create = HRESULT(WINAPI*)(HWND, LONG, REFIID, void**);
    void* object = nullptr;
    if (const auto create = oleacc.Function<Create>("CreateStdAccessibleObject");
        create != nullptr) {
        create(listBox, OBJID_CLIENT, __uuidof(IAccessible), &object);
    }
    return UniqueAccessible(static_cast<IAccessible*>(object));
}

}  // namespace

LRESULT AnswerAccessibility(HWND listBox, WPARAM wParam) {
    // It stays loaded: the objects that it makes may outlive this.
    static const SystemLibrary oleacc(L"oleacc.dll");
    using Result = LRESULT(WINAPI*)(REFIID, WPARAM, IUnknown*);
    const auto result = oleacc.Function<Result>("LresultFromObject");
    UniqueAccessible standard = StandardObject(oleacc, listBox);
    if (result == nullptr || standard == nullptr) {
        return 0;
    }
    const UniqueAccessible object(
        std::make_unique<CheckListAccessible>(listBox, std::move(standard)).release());
    return result(__uuidof(IAccessible), wParam, object.get());
}

bool IsEntryTicked(HWND listBox, int entry) {
    return SendMessageW(listBox, LB_GETITEMDATA, static_cast<WPARAM>(entry), 0) == 1;
}

void ToggleEntry(HWND listBox, int entry) {
    if (entry < 0 || entry >= CountOf(listBox)) {
        return;
    }
    SendMessageW(listBox, LB_SETITEMDATA, static_cast<WPARAM>(entry),
                 IsEntryTicked(listBox, entry) ? 0 : 1);
    NotifyWinEvent(EVENT_OBJECT_STATECHANGE, listBox, OBJID_CLIENT, entry + 1);
}

}  // namespace ambrio
