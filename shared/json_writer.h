#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace trelin {

// Writes JSON, indented by two spaces a level. Texts are in UTF-8.
//
//   JsonWriter json;
//   json.Begin('{');
//   json.Key("errors");
//   json.Number(2);
//   json.End('}');
//   json.Text() == "{\n  \"errors\": 2\n}\n"
class JsonWriter {
 public:
  void Begin(char cBracket);
  void End(char cBracket);
  void Key(std::string_view sKey);
  void String(std::string_view sValue);
  void Number(long long lValue);
  void Boolean(bool bValue);
  void Null();

  void Member(std::string_view sKey, std::string_view sValue) {
    Key(sKey);
    String(sValue);
  }
  void Member(std::string_view sKey, const char* pValue) { Member(sKey, std::string_view(pValue)); }
  void NumberMember(std::string_view sKey, long long lValue) {
    Key(sKey);
    Number(lValue);
  }

  std::string Text() const { return sText_ + "\n"; }
  // What there is so far, which Text then begins behind.
  std::string Take() { return std::exchange(sText_, {}); }

 private:
  void StartValue();
  void NewLine();
  void Quote(std::string_view sText);

  std::string sText_;
  std::size_t nDepth_ = 0;
  bool bFirst_ = true;      // nothing stands in the innermost bracket yet
  bool bAfterKey_ = false;  // the value belongs on the same line
};

}  // namespace trelin
