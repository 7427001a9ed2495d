#include "check/rules.h"

#include <array>
#include <cstddef>

namespace trelin {

namespace {

constexpr std::array RuleTexts = {
    RuleText{Rule::NotUnderstood, "not-understood",
             "A line is no block start, block end, entry or comment."},
    RuleText{Rule::LineTooLong, "line-too-long", "A line has more than 32,767 characters."},
    RuleText{Rule::MustBegin, "must-begin", "The first statement is not BLOCK SETUPLIST."},
    RuleText{Rule::WrongBlock, "wrong-block", "A block stands where a block of its type may not."},
    RuleText{Rule::AfterEnd, "after-end", "Something follows the END of the SETUPLIST block."},
    RuleText{Rule::MissingEnd, "missing-end", "A block has no END."},
    RuleText{Rule::ByteOrderMark, "byte-order-mark", "The file begins with a byte order mark."},
    RuleText{Rule::NotAnsi, "not-ansi", "A text is not in the ANSI code page."},
    RuleText{Rule::UnknownKey, "unknown-key", "The launcher does not know a key."},
    RuleText{Rule::RepeatedKey, "repeated-key", "A key is given twice in one block."},
    RuleText{Rule::TooManyProducts, "too-many-products", "The list has more than 32,767 products."},
    RuleText{Rule::NoTitle, "no-title", "A product or prerequisite has no title."},
    RuleText{Rule::NoInstaller, "no-installer", "A product has no installer."},
    RuleText{Rule::NoCode, "no-code", "A product or prerequisite has no product code."},
    RuleText{Rule::NoRevision, "no-revision", "A product has no revision."},
    RuleText{Rule::RepeatedCode, "repeated-code", "Two products have the same product code."},
    RuleText{Rule::NotOffered, "not-offered",
             "No product of the list offers the code of a prerequisite."},
    RuleText{Rule::RevisionNotOffered, "revision-not-offered",
             "A prerequisite asks for a higher revision than the list offers."},
    RuleText{Rule::Circle, "circle", "Products wait for each other in a circle."},
    RuleText{Rule::RevisionOrder, "revision-order",
             "Two revisions sort the wrong way round as texts."},
    RuleText{Rule::PictureMissing, "picture-missing", "A picture file does not open."},
    RuleText{Rule::PictureUnreadable, "picture-unreadable", "A picture does not load."},
    RuleText{Rule::InstallerMissing, "installer-missing",
             "An installer is not in the source folder."},
    RuleText{Rule::ReadMeMissing, "read-me-missing",
             "A read-me program is not in the folder of the list."},
    RuleText{Rule::ReadMeAmbiguous, "read-me-ambiguous",
             "A read-me program's name has spaces, so that another file may be taken for it."},
    RuleText{Rule::NotAProgram, "not-a-program", "A file to start is no program by its name."},
    RuleText{Rule::LongText, "long-text", "A text does not fit into its place in the menu."},
    RuleText{Rule::LibraryDamaged, "library-damaged", "A string library does not load."},
    RuleText{Rule::MissingText, "missing-text", "A string library lacks a text."},
    RuleText{Rule::UnknownText, "unknown-text",
             "A string library has a text that the program never asks for."},
    RuleText{Rule::Placeholders, "placeholders",
             "The placeholders of a text are not those of the program's own."},
    RuleText{Rule::TextTooLong, "text-too-long", "A text has more than 1,023 characters."},
    RuleText{Rule::TextNotAnsi, "text-not-ansi",
             "A text of a string library has characters that the ANSI code page lacks."},
    RuleText{Rule::AccessKey, "access-key", "Buttons lack access keys or share one."},
    RuleText{Rule::AlikeTexts, "alike-texts", "Two installation states read the same."},
};

constexpr bool AreInOrder() {
  for (std::size_t i = 0; i < RuleTexts.size(); ++i)
    if (static_cast<std::size_t>(RuleTexts[i].rule) != i) return false;
  return true;
}
static_assert(AreInOrder());

}  // namespace

std::span<const RuleText> Rules() { return RuleTexts; }

const RuleText& TextOf(Rule rule) { return RuleTexts[static_cast<std::size_t>(rule)]; }

}  // namespace trelin
