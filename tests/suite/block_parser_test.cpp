#include "suite/block_parser.h"

#include <stdexcept>

#include "seam/platform_error.h"
#include "testing/program_test.h"
#include "texts/error.h"

namespace trelin {
namespace {

const std::string sFile = "C:\\list.cfg";

class BlockParserTest : public ProgramTest {
 protected:
  BlockParser& Open(const std::string& sText) {
    system.files[sFile] = sText;
    parser.OpenFile(sFile, false);
    return parser;
  }

  // The next token in words: "block TYPE|name", "end", "KEY=value", "eof" or
  // the error's number and description.
  std::string NextToken() {
    try {
      const BlockParser::Token token = parser.GetToken();
      if (token == BlockParser::TokenStartBlock())
        return "block " + Joined(parser.BlockType(), '|', parser.BlockName());
      if (token == BlockParser::TokenKeyValue()) return Joined(parser.Key(), '=', parser.Value());
      return token == BlockParser::TokenEndBlock() ? "end" : "eof";
    } catch (const Error& error) {
      return std::to_string(error.Number()) + " " + error.Source() + " " + error.Description();
    } catch (const std::overflow_error&) {
      return "overflow";
    }
  }

  // All properties, to see what a call changed.
  std::string Properties() const {
    return Joined(parser.Key(), '|', parser.Value()) + "|" +
           Joined(parser.BlockType(), '|', parser.BlockName()) + "|" +
           std::to_string(parser.CurrentLine());
  }

  static std::string Joined(std::string_view sOne, char cBetween, std::string_view sOther) {
    return std::string(sOne) + cBetween + std::string(sOther);
  }

  BlockParser parser;
};

TEST_F(BlockParserTest, ALineIsOneOfTheKinds) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "eof"},
      {" \t ", "eof"},
      {"  ; BLOCK X", "eof"},
      {"\t;x = 1", "eof"},
      {"x = 1 ; note", "X=1 ; note"},
      {"block application Main Extra", "block APPLICATION|Main"},
      {"  Block   application    Main", "block APPLICATION|Main"},
      {"BLOCK", "block |"},
      {"BLOCK\tPRODUCT", "block PRODUCT|"},
      {"BLOCK=1", "BLOCK=1"},
      {"END SETUPLIST", "end"},
      {"end", "end"},
      {"END = 5", "end"},
      {"END=5", "END=5"},
      {"Title = A = B", "TITLE=A = B"},
      {"=x", "=x"},
      {"a\tb= c", "A B=c"},
      {"path = \"C:\\A B\"", "PATH=\"C:\\A B\""},
      {"gr\xF6\xDF"
       "e = gr\xF6\xDF"
       "e",
       "GR\xD6\xDF"
       "E=gr\xF6\xDF"
       "e"},
      {"x", "5000 BlockParse.GetToken 35008(1)"},
      {"ENDE", "5000 BlockParse.GetToken 35008(1)"},
  };
  for (const auto& [sLine, sExpected] : cases) {
    Open(sLine);
    EXPECT_EQ(NextToken(), sExpected) << "[" << sLine << "]";
  }
}

TEST_F(BlockParserTest, EveryLineEndCounts) {
  const std::pair<const char*, int> cases[] = {
      {"", 0},         {";a", 1},       {";a\r\n", 1},         {";a\r\n;b", 2},
      {";a\r;b\r", 2}, {";a\n;b\n", 2}, {"\r\n\r\n", 2},       {"\r\r\n\n", 3},
      {"\n\r", 2},     {"\r", 1},       {";a\r\n;b\r;c\n", 3},
  };
  for (const auto& [sText, nLines] : cases) {
    Open(sText);
    EXPECT_EQ(NextToken(), "eof");
    EXPECT_EQ(parser.CurrentLine(), nLines) << testing::PrintToString(sText);
  }
}

TEST_F(BlockParserTest, LinesCrossTheReadBuffer) {
  // The line ends fall on every place around the end of a 64 KB buffer.
  for (const std::size_t nLength : {65533U, 65534U, 65535U, 65536U, 131071U}) {
    Open(";" + std::string(nLength - 1, 'c') + "\r\nkey=" + std::string(70000, 'v') + "\r\nEND");
    EXPECT_EQ(NextToken(), "KEY=" + std::string(70000, 'v')) << nLength;
    EXPECT_EQ(parser.CurrentLine(), 2) << nLength;
    EXPECT_EQ(NextToken(), "end");
    EXPECT_EQ(NextToken(), "eof");
  }
  // What is special stands in another buffer than the beginning.
  for (const char* sEnd : {"\n", "\r", "\r\n"}) {
    Open(";" + std::string(65534, 'c') + sEnd + "a\tb=1" + sEnd + "c=2" + sEnd);
    EXPECT_EQ(NextToken(), "A B=1") << testing::PrintToString(sEnd);
    EXPECT_EQ(NextToken(), "C=2") << testing::PrintToString(sEnd);
    EXPECT_EQ(parser.CurrentLine(), 3);
  }
}

TEST_F(BlockParserTest, PropertiesStayUntilTheirKindComesAgain) {
  Open("BLOCK APPLICATION Main\nkey=1\nEND\nBLOCK DEPENDENCY\nbad\nend");
  NextToken();
  NextToken();
  NextToken();
  EXPECT_EQ(Properties(), "KEY|1|APPLICATION|Main|3");
  NextToken();
  EXPECT_EQ(Properties(), "KEY|1|DEPENDENCY||4") << "the name of the block before is gone";
  EXPECT_EQ(NextToken(), "5000 BlockParse.GetToken 35008(5)");
  EXPECT_EQ(NextToken(), "end") << "goes on behind the bad line";
  EXPECT_EQ(NextToken(), "eof");
  EXPECT_EQ(NextToken(), "eof");
  EXPECT_EQ(Properties(), "KEY|1|DEPENDENCY||6");
}

TEST_F(BlockParserTest, PropertiesOutliveTheLinesThatTheyWereReadFrom) {
  const std::string sComments(30000, ';');
  Open("block One Two\nkey = value\n" + sComments + "\n" + sComments + "\n" + sComments +
       "\nEND\nx = " + std::string(100, 'y'));
  NextToken();
  EXPECT_EQ(NextToken(), "KEY=value");
  EXPECT_EQ(NextToken(), "end");
  EXPECT_EQ(Properties(), "KEY|value|ONE|Two|6") << "the buffer holds other lines by now";
  EXPECT_TRUE(parser.ParseKeyValue("a = b"));
  EXPECT_TRUE(parser.ParseBlock("block three four"));
  EXPECT_FALSE(parser.ParseKeyValue("five"));
  EXPECT_EQ(Properties(), "A|b|THREE|four|6");
  EXPECT_EQ(NextToken(), "X=" + std::string(100, 'y')) << "the file goes on where it was";
  system.files[sFile] = std::string(70000, ';');
  parser.OpenFile(sFile, false);
  EXPECT_EQ(NextToken(), "eof");
  EXPECT_EQ(Properties(), "X|" + std::string(100, 'y') + "|THREE|four|1");
}

TEST_F(BlockParserTest, PositionsAre16Bit) {
  const std::string sFull(32767, 'x');  // so that what follows stands beyond
  const std::string sFits(32766, 'x');  // so that it is the last that fits
  const struct {
    const char* sCase;
    std::string sLine;
    bool bOverflow;
    std::int32_t lLine;  // what CurrentLine then is
  } cases[] = {
      {"last = that fits", sFits + "=v", false, 3},
      {"= beyond", sFull + "=v", true, 3},
      {"first space beyond", sFull + " =v", true, 3},
      {"type and name apart beyond", "BLOCK " + sFull + " n", true, 3},
      {"tab beyond: the line does not count", "k=v" + sFull + "\t", true, 2},
      {"a later space beyond is ordinary text", "k =" + sFull + " v", false, 3},
      {"a long value without spaces", "k=" + sFull, false, 3},
  };
  for (const auto& c : cases) {
    Open("BLOCK TYPE Name\nkey=1\n" + c.sLine + "\nend");
    NextToken();
    NextToken();
    EXPECT_EQ(NextToken() == "overflow", c.bOverflow) << c.sCase;
    EXPECT_EQ(parser.CurrentLine(), c.lLine) << c.sCase;
    EXPECT_EQ(Properties().starts_with("KEY|1|TYPE|Name|"), c.bOverflow) << c.sCase;
    EXPECT_EQ(NextToken(), "end") << c.sCase << ": the line is consumed";
  }
}

TEST_F(BlockParserTest, OpeningAndClosing) {
  Open("a=1\nb=2\n");
  NextToken();
  EXPECT_THROW(parser.OpenFile("C:\\other", true), Error);
  EXPECT_EQ(NextToken(), "B=2") << "the open file stays at its position";
  EXPECT_THROW(parser.OpenFile("C:\\missing", false), PlatformError);
  EXPECT_EQ(system.nOpenFiles, 0) << "the one before is closed";
  Open("c=3");
  EXPECT_EQ(parser.CurrentLine(), 0);
}

}  // namespace
}  // namespace trelin
