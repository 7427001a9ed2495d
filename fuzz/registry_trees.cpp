// The input says what an installer does with its keys. The registry is compared with a
// model: levels of names, each with its values in the order of their creation.

#include <array>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/input.h"
#include "fuzz/platform.h"
#include "fuzz/target.h"
#include "shared/code_page.h"
#include "suite/reg_entry.h"
#include "texts/error.h"

namespace trelin {

namespace {

constexpr std::size_t MostKeys = 40;      // copies of copies would be too many
constexpr int MostSteps = 32;             // more would decide little and take as long again
constexpr std::size_t LongestName = 255;  // of a key
constexpr std::size_t LongestListed = 254;
constexpr std::size_t LongestData = 255;

using Levels = std::vector<std::string>;

struct Key {
  std::string sName;
  bool bDeleted = false;
  std::map<std::string, std::shared_ptr<Key>> keys;  // by their names in upper case
  std::vector<std::pair<std::string, std::string>> values;

  Key* Find(const std::string& sKey) const {
    const auto found = keys.find(UpperCase1252(sKey));
    return found == keys.end() ? nullptr : found->second.get();
  }
  std::pair<std::string, std::string>* FindValue(const std::string& sValue) {
    for (auto& value : values)
      if (UpperCase1252(value.first) == UpperCase1252(sValue)) return &value;
    return nullptr;
  }
  std::size_t Count() const {
    std::size_t nKeys = 1;
    for (const auto& [sUpper, key] : keys) nKeys += key->Count();
    return nKeys;
  }
};

using KeyPointer = std::shared_ptr<Key>;

Levels LevelsOf(const std::string& sPath) {
  Levels levels(1);
  for (const char c : sPath)
    if (c == '\\')
      levels.emplace_back();
    else
      levels.back() += c;
  std::erase(levels, "");
  return levels;
}

// Nothing where a level is missing.
KeyPointer FindIn(KeyPointer key, const Levels& levels) {
  for (const std::string& sLevel : levels) {
    const auto found = key->keys.find(UpperCase1252(sLevel));
    if (found == key->keys.end()) return nullptr;
    key = found->second;
  }
  return key;
}

// Nothing for a name that is too long; the levels above are there then.
KeyPointer CreateIn(KeyPointer key, const Levels& levels) {
  for (const std::string& sLevel : levels) {
    if (sLevel.size() > LongestName) return nullptr;
    KeyPointer& next = key->keys[UpperCase1252(sLevel)];
    if (!next) next = std::make_shared<Key>(Key{sLevel, false, {}, {}});
    key = next;
  }
  return key;
}

void SetValue(Key& key, const std::string& sName, const std::string& sData) {
  if (auto* value = key.FindValue(sName))
    value->second = sData;
  else
    key.values.emplace_back(sName, sData);
}

// Values are listed up to the first that is too long, and so are keys.
std::size_t ListedValues(const Key& key) {
  std::size_t n = 0;
  while (n < key.values.size() && key.values[n].first.size() <= LongestListed &&
         key.values[n].second.size() <= LongestData)
    ++n;
  return n;
}

std::vector<KeyPointer> ListedKeys(const Key& key) {
  std::vector<KeyPointer> keys;
  for (const auto& [sUpper, subkey] : key.keys) {
    if (sUpper.size() > LongestListed) break;
    keys.push_back(subkey);
  }
  return keys;
}

// Both lie apart.
void CopyInto(const KeyPointer& destination, const Key& source) {
  for (std::size_t i = 0; i < ListedValues(source); ++i)
    SetValue(*destination, source.values[i].first, source.values[i].second);
  for (const KeyPointer& key : ListedKeys(source))
    CopyInto(CreateIn(destination, {key->sName}), *key);
}

// Whether it goes: a key that is not listed keeps all keys above it.
bool Delete(Key& parent, const std::string& sKey) {
  Key& key = *parent.Find(sKey);
  for (const KeyPointer& subkey : ListedKeys(key))
    if (!Delete(key, subkey->sName)) return false;
  if (!key.keys.empty()) return false;
  key.bDeleted = true;
  key.values.clear();
  parent.keys.erase(UpperCase1252(sKey));
  return true;
}

void CheckSame(const Key& expected, const RegistryNode& found) {
  CheckEqual(expected.sName, found.Name(), "a key keeps its name");
  Check(expected.values.size() == found.AllValues().size(), "all values are there");
  std::size_t nValue = 0;
  for (const RegistryValue& value : found.AllValues()) {
    CheckEqual(expected.values[nValue].first, value.sName, "values keep their order and names");
    CheckEqual(expected.values[nValue++].second, value.sData, "values keep their bytes");
  }
  Check(expected.keys.size() == found.KeyCount(), "all keys are there");
  std::size_t nKey = 0;
  for (const auto& [sUpper, key] : expected.keys) CheckSame(*key, found.Key(nKey++));
}

KeyPointer ModelOf(const RegistryNode& node) {
  auto key = std::make_shared<Key>(Key{node.Name(), false, {}, {}});
  for (const RegistryValue& value : node.AllValues())
    key->values.emplace_back(value.sName, value.sData);
  for (std::size_t i = 0; i < node.KeyCount(); ++i)
    key->keys[UpperCase1252(node.Key(i).Name())] = ModelOf(node.Key(i));
  return key;
}

// The number of the error that the operation throws, or 0.
template <class Operation>
int Failure(const Operation& operation) {
  try {
    operation();
    return 0;
  } catch (const Error& error) {
    return error.Number();
  }
}

class Installer {
 public:
  explicit Installer(Input& input) : input_(input) {}

  void Run() {
    for (int n = 0; n < MostSteps && !input_.Empty(); ++n) Step(input_.Below(10));
    CheckTree();
    Check(platform_.registry.OpenHandles() <= 1, "all keys but the current one are closed");
  }

 private:
  void Step(std::size_t nKind) {
    if (nKind < 2) return Create();
    if (nKind == 2) return Open();
    if (nKind < 5) return Set();
    if (nKind == 5) return List();
    if (nKind == 6) return Copy();
    if (nKind == 7) return DeleteBelowCurrent();
    if (nKind == 8) return DeleteByPath();
    RemoveProgID();
  }

  const std::string& Path() {
    static const std::array<std::string, 12> Paths = {"a",
                                                      "A\\b",
                                                      "b",
                                                      "c\\D\\e",
                                                      "\xE4",
                                                      "\xC4\\\\z\\",
                                                      "a\\b\\c",
                                                      std::string(255, 'k'),
                                                      "a\\" + std::string(255, 'k'),
                                                      "b\\" + std::string(256, 'k'),
                                                      "",
                                                      "\\"};
    return Paths.at(input_.Below(Paths.size()));
  }

  const std::string& ValueName() {
    static const std::array<std::string, 8> Names = {"",
                                                     "v",
                                                     "V",
                                                     "w",
                                                     "x",
                                                     std::string(254, 'n'),
                                                     std::string(255, 'n'),
                                                     std::string(16384, 'n')};
    return Names.at(input_.Below(Names.size()));
  }

  const std::string& Data() {
    static const std::array<std::string, 7> Texts = {"",
                                                     "1",
                                                     "text",
                                                     std::string("\0x\0\0", 4),
                                                     std::string(1, '\0'),
                                                     std::string(255, 'd'),
                                                     std::string(256, 'd')};
    return Texts.at(input_.Below(Texts.size()));
  }

  static Levels FullLevels(const std::string& sPath) {
    return LevelsOf("SOFTWARE\\Korvanta\\" + sPath);
  }

  void Create() {
    const std::string& sPath = Path();
    current_ = CreateIn(machine_, FullLevels(sPath));
    currentLevels_ = FullLevels(sPath);
    Check(Failure([&] { entry_.CreateKey(sPath); }) == (current_ ? 0 : 5000),
          "a key is created, or its name is too long");
  }

  void Open() {
    const std::string& sPath = Path();
    const KeyPointer key = FindIn(machine_, FullLevels(sPath));
    Check(entry_.TestKey(sPath) == (key != nullptr), "a key is there or not");
    Check(Failure([&] { entry_.OpenKey(sPath); }) == (key ? 0 : 5001), "what is there opens");
    current_ = key;
    currentLevels_ = FullLevels(sPath);
  }

  void Set() {
    const std::string& sName = ValueName();
    const std::string& sData = Data();
    const int nFailure = Failure([&] { entry_.SetString(sName, sData); });
    const bool bFails = current_ && !sData.empty() && (current_->bDeleted || sName.size() > 16383);
    Check(nFailure == (bFails ? 5002 : 0), "a value is written, unless its key is gone");
    if (!current_ || current_->bDeleted || bFails) return;
    if (sData.empty())
      std::erase_if(current_->values, [&](const auto& value) {
        return UpperCase1252(value.first) == UpperCase1252(sName);
      });
    else
      SetValue(*current_, sName, sData);
    CheckText(sName);
  }

  void CheckText(const std::string& sName) {
    const auto* value = current_->FindValue(sName);
    std::string sText = value == nullptr || value->second.size() > LongestData ? "" : value->second;
    if (sText.ends_with('\0')) sText.pop_back();
    CheckEqual(sText, entry_.GetString(sName), "a value is read as a text");
  }

  void List() {
    const Key nothing;
    const Key& key = current_ ? *current_ : nothing;
    std::vector<std::string> names;
    const std::vector<KeyPointer> keys = ListedKeys(key);
    Check(entry_.Query(names) == static_cast<int>(keys.size()), "the keys are counted");
    for (std::size_t i = 0; i < keys.size(); ++i)
      CheckEqual(keys[i]->sName, names.at(i), "keys are listed in the order of their names");

    RegEntry::ValueArray rows;
    const std::size_t nValues = ListedValues(key);
    Check(entry_.QueryValues(rows) == static_cast<int>(nValues), "the values are counted");
    for (std::size_t i = 0; i < nValues; ++i) {
      std::string sData = key.values[i].second;
      while (sData.ends_with('\0')) sData.pop_back();
      CheckEqual(key.values[i].first, rows[0].at(i), "a value's name is listed");
      CheckEqual(sData, rows[1].at(i), "and its text");
    }
  }

  static bool Begins(const Levels& levels, const Levels& start) {
    if (levels.size() < start.size()) return false;
    for (std::size_t i = 0; i < start.size(); ++i)
      if (UpperCase1252(levels[i]) != UpperCase1252(start[i])) return false;
    return true;
  }

  void Copy() {
    const std::string& sPath = Path();
    if (machine_->Count() > MostKeys) return;
    const int nFailure = Failure([&] { entry_.Copy(sPath); });
    if (!current_) return Check(nFailure == 0, "without a key there is nothing to copy");
    const Levels levels = FullLevels(sPath);
    if (Begins(levels, currentLevels_))
      return Check(nFailure == 5000, "no key is copied into itself");
    const KeyPointer destination = CreateIn(machine_, levels);
    Check(nFailure == (destination ? 0 : 5000), "a key is copied, or the name is too long");
    if (!destination) return;
    if (!Begins(currentLevels_, levels)) return CopyInto(destination, *current_);
    // What is copied to a key above it may be seen twice: the model learns what came out.
    const bool bDeleted = current_->bDeleted;
    machine_ = ModelOf(*platform_.registry.Find(RegistryKey::LocalMachine));
    if (bDeleted)
      current_ = std::make_shared<Key>(Key{"", true, {}, {}});
    else
      current_ = FindIn(machine_, currentLevels_);
  }

  // What DeleteKey says of the subkey sPath of a key, which goes in the model.
  static int ExpectedOfDeletion(const KeyPointer& parent, const std::string& sPath) {
    Levels levels = LevelsOf(sPath);
    if (levels.empty() || sPath.starts_with('\\') || parent->bDeleted || !FindIn(parent, levels))
      return 5001;
    const std::string sName = levels.back();
    levels.pop_back();
    const KeyPointer above = FindIn(parent, levels);
    const KeyPointer key = FindIn(above, {sName});
    for (const KeyPointer& subkey : ListedKeys(*key))
      if (!Delete(*key, subkey->sName)) return 5001;
    if (key->keys.empty()) Delete(*above, sName);
    return 0;
  }

  void DeleteBelowCurrent() {
    const std::string& sPath = Path();
    const int nExpected = current_ ? ExpectedOfDeletion(current_, sPath) : 0;
    Check(Failure([&] { entry_.DeleteKey(sPath); }) == nExpected, "a subkey goes or is named");
  }

  void DeleteByPath() {
    const std::string sPath = "SOFTWARE\\Korvanta\\" + Path();
    Check(Failure([&] { RegEntry::DeleteInternal(RegistryKey::LocalMachine, sPath); }) ==
              ExpectedOfDeletion(machine_, sPath),
          "a key goes or is named");
  }

  // Of a component, each key with what leads to the next.
  void RemoveProgID() {
    static const std::array<std::string, 4> Names = {"", "\\", "{1}", "{2}"};
    const std::string sClasses = "HKEY_CLASSES_ROOT\\";
    const std::string& sClass = Names.at(input_.Below(Names.size()));
    const std::string& sLibrary = Names.at(input_.Below(Names.size()));
    MemoryRegistry& registry = platform_.registry;
    registry.SetText(sClasses + "Program\\Clsid", "", sClass);
    registry.SetText(sClasses + "CLSID\\{1}\\TypeLib", "", sLibrary);
    registry.SetText(sClasses + "TypeLib\\{1}\\1.0", "", "");
    RegEntry::RemoveProgID("Program");
    const bool bClass = sClass == "{1}";
    const auto isThere = [&](const char* pPath) {
      return registry.Find(RegistryKey::ClassesRoot, pPath) != nullptr;
    };
    Check(!isThere("Program"), "the identifier goes");
    Check(isThere("CLSID\\{1}") == !bClass, "its class goes");
    Check(isThere("TypeLib\\{1}") == !(bClass && sLibrary == "{1}"), "its type library goes");
    Check(isThere("CLSID") && isThere("TypeLib"), "what all components share stays");
  }

  void CheckTree() const {
    const RegistryNode& tree = platform_.registry.Tree();
    CheckSame(*machine_, *tree.FindKey("HKEY_LOCAL_MACHINE"));
  }

  Input& input_;
  FakePlatform& platform_ = CleanPlatform();
  RegEntry entry_;
  KeyPointer machine_ = std::make_shared<Key>(Key{"HKEY_LOCAL_MACHINE", false, {}, {}});
  KeyPointer current_;  // nothing: no key is open
  Levels currentLevels_;
};

}  // namespace

void Try(std::string_view sInput) {
  Input input(sInput);
  Installer(input).Run();
}

}  // namespace trelin
