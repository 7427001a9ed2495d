#include "testing/windows/accessible_client.h"

#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>
#include <oleacc.h>

#include <map>

#include "systems/windows/com_owner.h"
#include "testing/windows/message_pump.h"

namespace trelin {

namespace {

VARIANT Self() {
  VARIANT self{};
  self.vt = VT_I4;
  self.lVal = CHILDID_SELF;
  return self;
}

// Windows knows the roles of its own controls; Wine calls them all a client area.
std::string NameOfRole(LONG lRole, IAccessible& object) {
  static const std::map<LONG, const char*> names = {{ROLE_SYSTEM_LIST, "list"},
                                                    {ROLE_SYSTEM_LISTITEM, "list item"},
                                                    {ROLE_SYSTEM_PUSHBUTTON, "button"},
                                                    {ROLE_SYSTEM_STATICTEXT, "text"},
                                                    {ROLE_SYSTEM_SCROLLBAR, "scroll bar"}};
  if (lRole != ROLE_SYSTEM_CLIENT) return names.at(lRole);
  HWND hWindow = nullptr;
  WindowFromAccessibleObject(&object, &hWindow);
  const std::string sClass = ClassOf(hWindow);
  return sClass == WC_STATICA ? "text" : sClass == WC_SCROLLBARA ? "scroll bar" : "client";
}

ComOwner<IAccessible> AccessibleOf(HWND hWindow) {
  return Made<IAccessible>([hWindow](IAccessible** pp) {
    return AccessibleObjectFromWindow(hWindow, static_cast<DWORD>(OBJID_CLIENT),
                                      __uuidof(IAccessible), reinterpret_cast<void**>(pp));
  });
}

LONG NumberOf(IAccessible& object,
              HRESULT (STDMETHODCALLTYPE IAccessible::*get)(VARIANT, VARIANT*)) {
  VARIANT number{};
  return SUCCEEDED((object.*get)(Self(), &number)) && number.vt == VT_I4 ? number.lVal : 0;
}

std::string NameOf(IAccessible& object) {
  BSTR name = nullptr;
  if (object.get_accName(Self(), &name) != S_OK) return "";
  std::string sName(4 * SysStringLen(name), '\0');
  const int nLength =
      WideCharToMultiByte(CP_ACP, 0, name, static_cast<int>(SysStringLen(name)), sName.data(),
                          static_cast<int>(sName.size()), nullptr, nullptr);
  SysFreeString(name);
  sName.resize(static_cast<std::size_t>(nLength));
  return sName;
}

std::string DescriptionOf(IAccessible& object) {
  const LONG lState = NumberOf(object, &IAccessible::get_accState);
  return NameOfRole(NumberOf(object, &IAccessible::get_accRole), object) + " <" + NameOf(object) +
         '>' + ((lState & STATE_SYSTEM_FOCUSED) != 0 ? " focused" : "") +
         ((lState & STATE_SYSTEM_SELECTED) != 0 ? " selected" : "");
}

std::vector<std::string> events;

void CALLBACK NoteEvent(HWINEVENTHOOK, DWORD event, HWND hWindow, LONG lObject, LONG, DWORD,
                        DWORD) {
  const std::pair<DWORD, const char*> kinds[] = {{EVENT_OBJECT_NAMECHANGE, "name"},
                                                 {EVENT_OBJECT_FOCUS, "focus"},
                                                 {EVENT_OBJECT_SELECTION, "selection"},
                                                 {EVENT_OBJECT_LIVEREGIONCHANGED, "announcement"}};
  for (const auto& [kind, pKind] : kinds) {
    if (event == kind && lObject == OBJID_CLIENT)
      events.push_back(std::string(pKind) + " <" + NameOf(*AccessibleOf(hWindow)) + '>');
  }
}

}  // namespace

std::string DescribeWindow(HWND hWindow) { return DescriptionOf(*AccessibleOf(hWindow)); }

std::vector<std::string> DescribeChildrenOf(HWND hWindow) {
  const ComOwner<IAccessible> object = AccessibleOf(hWindow);
  LONG lCount = 0;
  object->get_accChildCount(&lCount);
  std::vector<VARIANT> found(static_cast<std::size_t>(lCount));
  AccessibleChildren(object.get(), 0, lCount, found.data(), &lCount);
  std::vector<std::string> children;
  for (VARIANT& child : found) {
    if (child.vt != VT_DISPATCH) continue;
    IAccessible* pChild = nullptr;
    if (SUCCEEDED(child.pdispVal->QueryInterface(__uuidof(IAccessible),
                                                 reinterpret_cast<void**>(&pChild)))) {
      const ComOwner<IAccessible> owner(pChild);
      const LONG lState = NumberOf(*pChild, &IAccessible::get_accState);
      if ((lState & STATE_SYSTEM_INVISIBLE) == 0) children.push_back(DescriptionOf(*pChild));
    }
    VariantClear(&child);
  }
  return children;
}

void DoDefaultAction(HWND hWindow) {
  const ComOwner<IAccessible> object = AccessibleOf(hWindow);
  BSTR name = nullptr;
  EXPECT_EQ(object->get_accDefaultAction(Self(), &name), S_OK);
  SysFreeString(name);
  EXPECT_EQ(object->accDoDefaultAction(Self()), S_OK);
}

std::vector<std::string> EventsDuring(const std::function<void()>& action) {
  events.clear();
  const HWINEVENTHOOK hHook =
      SetWinEventHook(EVENT_MIN, EVENT_MAX, GetModuleHandleA(nullptr), NoteEvent,
                      GetCurrentProcessId(), GetCurrentThreadId(), WINEVENT_INCONTEXT);
  action();
  UnhookWinEvent(hHook);
  return events;
}

}  // namespace trelin
