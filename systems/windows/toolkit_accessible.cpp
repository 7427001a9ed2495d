#include "systems/windows/toolkit_accessible.h"

#include <windows.h>
#include <oleacc.h>

#include <memory>
#include <new>
#include <vector>

#include "systems/windows/com_owner.h"
#include "systems/windows/library_loading.h"
#include "systems/windows/toolkit_box.h"
#include "systems/windows/toolkit_form.h"
#include "systems/windows/toolkit_text.h"

namespace trelin {

namespace {

// Needed only when a client asks, and taken then from libraries that the program does
// not link.
struct Functions {
  decltype(&::CreateStdAccessibleObject) createStandard;
  decltype(&::LresultFromObject) toResult;
  decltype(&::AccessibleObjectFromWindow) fromWindow;
  decltype(&::SysAllocStringLen) allocateText;
};

template <class Function>
void Find(HMODULE hLibrary, const char* pName, Function& function) {
  function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(hLibrary, pName)));
}

Functions LoadFunctions() {
  const HMODULE hAccess = LoadFromSystemFolder("oleacc");
  const HMODULE hAutomation = LoadFromSystemFolder("oleaut32");
  Functions functions{};
  Find(hAccess, "CreateStdAccessibleObject", functions.createStandard);
  Find(hAccess, "LresultFromObject", functions.toResult);
  Find(hAccess, "AccessibleObjectFromWindow", functions.fromWindow);
  Find(hAutomation, "SysAllocStringLen", functions.allocateText);
  return functions;
}

const Functions& TheFunctions() {
  static const Functions functions = LoadFunctions();
  return functions;
}

bool HaveFunctions() {
  const Functions& f = TheFunctions();
  return f.createStandard != nullptr && f.toResult != nullptr && f.fromWindow != nullptr &&
         f.allocateText != nullptr;
}

BSTR ToBstr(std::u16string_view sText) {
  return TheFunctions().allocateText(reinterpret_cast<const OLECHAR*>(sText.data()),
                                     static_cast<UINT>(sText.size()));
}

VARIANT Number(LONG lNumber) {
  VARIANT value{};
  value.vt = VT_I4;
  value.lVal = lNumber;
  return value;
}

bool IsSelf(const VARIANT& child) { return child.vt == VT_I4 && child.lVal == CHILDID_SELF; }

LONG RoleOf(const BoxWindow& box) {
  switch (box.Role()) {
    case BoxRole::List:
      return ROLE_SYSTEM_LIST;
    case BoxRole::ListItem:
      return ROLE_SYSTEM_LISTITEM;
    case BoxRole::Button:
      return ROLE_SYSTEM_PUSHBUTTON;
    case BoxRole::Pane:
      break;
  }
  return ROLE_SYSTEM_PANE;
}

// What the system's own object for a window does not know.
LONG ExtraState(const BoxWindow& box) {
  LONG lState = box.Role() == BoxRole::List ? 0 : STATE_SYSTEM_FOCUSABLE;
  if (box.Role() == BoxRole::ListItem) lState |= STATE_SYSTEM_SELECTABLE;
  if (box.Selected()) lState |= STATE_SYSTEM_SELECTED;
  if (box.Form().Focus() == box.Handle() && GetFocus() == box.Handle())
    lState |= STATE_SYSTEM_FOCUSED;
  return lState;
}

// The children of a box: what is shown in it.
std::vector<HWND> ShownIn(HWND hBox) {
  std::vector<HWND> shown;
  for (HWND hChild = GetWindow(hBox, GW_CHILD); hChild != nullptr;
       hChild = GetWindow(hChild, GW_HWNDNEXT)) {
    if (IsWindowVisible(hChild)) shown.push_back(hChild);
  }
  return shown;
}

HRESULT ObjectOf(HWND hWindow, IDispatch** ppObject) {
  return TheFunctions().fromWindow(hWindow, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IDispatch),
                                   reinterpret_cast<void**>(ppObject));
}

// No exception may cross the frames of the system.
template <class Function>
HRESULT Guarded(Function function) {
  try {
    return function();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
}

// The system's object for the window, with what the box knows better. A client
// may keep it for longer than the window lives.
class BoxAccessible final : public IAccessible {
 public:
  BoxAccessible(HWND hBox, ComOwner<IAccessible> standard)
      : hBox_(hBox), standard_(std::move(standard)) {}
  virtual ~BoxAccessible() = default;
  BoxAccessible(const BoxAccessible&) = delete;
  BoxAccessible& operator=(const BoxAccessible&) = delete;

  // Children are told by number, not by the standard object's enumeration.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** ppObject) override {
    *ppObject = nullptr;
    if (id == __uuidof(IEnumVARIANT)) return E_NOINTERFACE;
    if (id != __uuidof(IUnknown) && id != __uuidof(IDispatch) && id != __uuidof(IAccessible))
      return standard_->QueryInterface(id, ppObject);
    *ppObject = static_cast<IAccessible*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++nReferences_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG nLeft = --nReferences_;
    if (nLeft == 0) delete this;
    return nLeft;
  }

  HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** ppParent) override;
  HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* pCount) override;
  HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** ppChild) override;
  HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* pName) override;
  HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* pRole) override;
  HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* pState) override;
  HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* pSelection) override;
  HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* pAction) override;
  HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override;
  HRESULT STDMETHODCALLTYPE accSelect(LONG lFlags, VARIANT child) override;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pCount) override {
    return standard_->GetTypeInfoCount(pCount);
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT nInfo, LCID locale, ITypeInfo** ppInfo) override {
    return standard_->GetTypeInfo(nInfo, locale, ppInfo);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* ppNames, UINT nNames, LCID locale,
                                          DISPID* pIds) override {
    return standard_->GetIDsOfNames(id, ppNames, nNames, locale, pIds);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID id, LCID locale, WORD flags,
                                   DISPPARAMS* pParameters, VARIANT* pResult, EXCEPINFO* pException,
                                   UINT* pWrong) override {
    return standard_->Invoke(member, id, locale, flags, pParameters, pResult, pException, pWrong);
  }
  HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* pValue) override {
    return standard_->get_accValue(child, pValue);
  }
  HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* pText) override {
    return standard_->get_accDescription(child, pText);
  }
  HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* pText) override {
    return standard_->get_accHelp(child, pText);
  }
  HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* pFile, VARIANT child, LONG* pTopic) override {
    return standard_->get_accHelpTopic(pFile, child, pTopic);
  }
  HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* pText) override {
    return standard_->get_accKeyboardShortcut(child, pText);
  }
  HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* pChild) override {
    return standard_->get_accFocus(pChild);
  }
  HRESULT STDMETHODCALLTYPE accLocation(LONG* pLeft, LONG* pTop, LONG* pWidth, LONG* pHeight,
                                        VARIANT child) override {
    return standard_->accLocation(pLeft, pTop, pWidth, pHeight, child);
  }
  HRESULT STDMETHODCALLTYPE accNavigate(LONG lDirection, VARIANT start, VARIANT* pEnd) override {
    return standard_->accNavigate(lDirection, start, pEnd);
  }
  HRESULT STDMETHODCALLTYPE accHitTest(LONG lLeft, LONG lTop, VARIANT* pChild) override {
    return standard_->accHitTest(lLeft, lTop, pChild);
  }
  HRESULT STDMETHODCALLTYPE put_accName(VARIANT child, BSTR name) override {
    return standard_->put_accName(child, name);
  }
  HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) override {
    return standard_->put_accValue(child, value);
  }

 private:
  HRESULT Post(BoxKey key) const {
    const auto lKey = static_cast<WPARAM>(key);
    return PostMessageA(hBox_, BoxWindow::KeyMessage, lKey, 0) ? S_OK : E_FAIL;
  }

  // Null where the child is none of its own, or the window is gone.
  BoxWindow* Self(const VARIANT& child) const {
    return IsSelf(child) ? dynamic_cast<BoxWindow*>(NativeWindow::Of(hBox_)) : nullptr;
  }

  HWND hBox_;
  ComOwner<IAccessible> standard_;
  ULONG nReferences_ = 1;
};

// The box around it, and not the standard object's answer: that is the window's frame.
HRESULT STDMETHODCALLTYPE BoxAccessible::get_accParent(IDispatch** ppParent) {
  return ObjectOf(GetAncestor(hBox_, GA_PARENT), ppParent);
}

HRESULT STDMETHODCALLTYPE BoxAccessible::get_accChildCount(LONG* pCount) {
  return Guarded([&] {
    *pCount = static_cast<LONG>(ShownIn(hBox_).size());
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE BoxAccessible::get_accChild(VARIANT child, IDispatch** ppChild) {
  *ppChild = nullptr;
  return Guarded([&] {
    const std::vector<HWND> children = ShownIn(hBox_);
    const bool bThere =
        child.vt == VT_I4 && child.lVal >= 1 && child.lVal <= static_cast<LONG>(children.size());
    return bThere ? ObjectOf(children[static_cast<std::size_t>(child.lVal - 1)], ppChild)
                  : E_INVALIDARG;
  });
}

HRESULT STDMETHODCALLTYPE BoxAccessible::get_accName(VARIANT child, BSTR* pName) {
  if (Self(child) == nullptr) return standard_->get_accName(child, pName);
  return Guarded([&] {
    const std::u16string sName = ToUtf16(WindowCaption(hBox_));
    *pName = sName.empty() ? nullptr : ToBstr(sName);
    return *pName != nullptr ? S_OK : S_FALSE;
  });
}

HRESULT STDMETHODCALLTYPE BoxAccessible::get_accRole(VARIANT child, VARIANT* pRole) {
  const BoxWindow* const pBox = Self(child);
  if (pBox == nullptr) return standard_->get_accRole(child, pRole);
  *pRole = Number(RoleOf(*pBox));
  return S_OK;
}

HRESULT STDMETHODCALLTYPE BoxAccessible::get_accState(VARIANT child, VARIANT* pState) {
  const HRESULT result = standard_->get_accState(child, pState);
  const BoxWindow* const pBox = Self(child);
  if (pBox == nullptr || FAILED(result)) return result;
  *pState = Number((pState->vt == VT_I4 ? pState->lVal : 0) | ExtraState(*pBox));
  return S_OK;
}

HRESULT STDMETHODCALLTYPE BoxAccessible::get_accSelection(VARIANT* pSelection) {
  *pSelection = VARIANT{};
  return Guarded([&] {
    for (const HWND hChild : ShownIn(hBox_)) {
      const auto* const pBox = dynamic_cast<BoxWindow*>(NativeWindow::Of(hChild));
      if (pBox == nullptr || !pBox->Selected()) continue;
      pSelection->vt = VT_DISPATCH;
      return ObjectOf(hChild, &pSelection->pdispVal);
    }
    return S_FALSE;
  });
}

// The word is the program's own: the string library has no text for it.
HRESULT STDMETHODCALLTYPE BoxAccessible::get_accDefaultAction(VARIANT child, BSTR* pAction) {
  const BoxWindow* const pBox = Self(child);
  if (pBox == nullptr || !pBox->CanAct()) return standard_->get_accDefaultAction(child, pAction);
  *pAction = ToBstr(u"Press");
  return *pAction != nullptr ? S_OK : E_OUTOFMEMORY;
}

// The client does not wait for what comes of it, which may be a message box.
HRESULT STDMETHODCALLTYPE BoxAccessible::accDoDefaultAction(VARIANT child) {
  const BoxWindow* const pBox = Self(child);
  if (pBox == nullptr || !pBox->CanAct()) return standard_->accDoDefaultAction(child);
  return Post(BoxKey::Space);
}

HRESULT STDMETHODCALLTYPE BoxAccessible::accSelect(LONG lFlags, VARIANT child) {
  const BoxWindow* const pBox = Self(child);
  if (pBox == nullptr) return standard_->accSelect(lFlags, child);
  if ((lFlags & SELFLAG_TAKEFOCUS) != 0) {
    pBox->Form().GiveFocus(hBox_);
    Post(BoxKey::Reach);
  }
  const bool bSelect = (lFlags & SELFLAG_TAKESELECTION) != 0;
  return bSelect && pBox->Role() == BoxRole::ListItem ? accDoDefaultAction(child) : S_OK;
}

ComOwner<IAccessible> StandardObject(HWND hWindow) {
  return Made<IAccessible>([hWindow](IAccessible** pp) {
    return TheFunctions().createStandard(hWindow, OBJID_CLIENT, __uuidof(IAccessible),
                                         reinterpret_cast<void**>(pp));
  });
}

}  // namespace

// The program does not end because a client cannot be answered.
LRESULT AccessibleObjectOf(const BoxWindow& box, WPARAM wParam) {
  try {
    SetUpCom();
    if (!HaveFunctions()) return 0;
    const ComOwner<IAccessible> object(
        new BoxAccessible(box.Handle(), StandardObject(box.Handle())));
    return TheFunctions().toResult(__uuidof(IAccessible), wParam, object.get());
  } catch (const std::exception&) {
    return 0;
  }
}

}  // namespace trelin
