#include "suite/block_parser.h"

#include "testing/program_test.h"

namespace trelin {
namespace {

const std::string sListFile = "C:\\list.cfg";

class BlockParserTest : public ProgramTest {
 protected:
  void Open(const std::string& sText) {
    system.files[sListFile] = sText;
    parser.OpenFile(sListFile, false);
  }

  // The next token in words: "block TYPE|name", "end", "KEY=value", "eof" or
  // the error.
  std::string NextToken() {
    BlockParser::Token token{};
    const std::string sFailure = Failure([&] { token = parser.GetToken(); });
    if (sFailure != "none") return sFailure;
    if (token == BlockParser::TokenEndFile()) return "eof";
    if (token == BlockParser::TokenEndBlock()) return "end";
    return token == BlockParser::TokenKeyValue()
               ? std::string(parser.Key()).append("=").append(parser.Value())
               : "block " + parser.BlockType() + "|" + parser.BlockName();
  }

  // All properties, to see what a call changed.
  std::string Properties() const {
    return std::string(parser.Key()).append("|").append(parser.Value()) + "|" + parser.BlockType() +
           "|" + parser.BlockName() + "|" + std::to_string(parser.CurrentLine());
  }

  BlockParser parser;
};

TEST_F(BlockParserTest, ALineIsOneOfTheKinds) {
  const std::pair<const char*, const char*> cases[] = {
      {" \t ", "eof"},
      {"  ; BLOCK X", "eof"},
      {"\t;x = 1", "eof"},
      {"x = 1 ; note", "X=1 ; note"},
      {"block application Main Extra", "block APPLICATION|Main"},
      {"  Block   application    Main", "block APPLICATION|Main"},
      {"BLOCK", "block |"},
      {"BLOCK\tPRODUCT\t", "block PRODUCT|"},
      {"BLOCK=1", "BLOCK=1"},
      {"BLOCKS = 1", "BLOCKS=1"},
      {"end", "end"},
      {"END = 5", "end"},
      {"END=5", "END=5"},
      {" Title = A = B  ", "TITLE=A = B"},
      {"=x", "=x"},
      {"x=", "X="},
      {"a\tb= c", "A B=c"},
      {"gr\xF6\xDF\x65 = gr\xF6\xDF\x65", "GR\xD6\xDF\x45=gr\xF6\xDF\x65"},
      {"x", "5000 BlockParse.GetToken 35008(1)"},
      {"ENDE", "5000 BlockParse.GetToken 35008(1)"},
  };
  for (const auto& [sLine, sExpected] : cases) {
    Open(sLine);
    EXPECT_EQ(NextToken(), sExpected) << "[" << sLine << "]";
  }
}

// Also where what is read at once ends within a line or between CR and LF, and where
// the file before ended in a CR.
TEST_F(BlockParserTest, EveryLineEndCounts) {
  const std::pair<const char*, int> cases[] = {
      {"", 0},         {";a", 1},       {";a\r\n", 1},         {";a\r\n;b", 2},
      {";a\r;b\r", 2}, {";a\n;b\n", 2}, {"\r\n\r\n", 2},       {"\r\r\n\n", 3},
      {"\n\r", 2},     {"\r", 1},       {";a\r\n;b\r;c\n", 3},
  };
  for (const std::size_t nPiece : {1U, 2U, 3U, 400U})
    for (const auto& [sText, nLines] : cases) {
      SCOPED_TRACE(testing::PrintToString(sText) + " by " + std::to_string(nPiece));
      system.nPiece = nPiece;
      Open(sText);
      EXPECT_EQ(NextToken(), "eof");
      EXPECT_EQ(parser.CurrentLine(), nLines);
      Open(sText + std::string("\na\tb=12345\r\nEND\r"));
      EXPECT_EQ(NextToken(), "A B=12345");
      EXPECT_EQ(NextToken(), "end");
    }
}

TEST_F(BlockParserTest, PropertiesStayUntilTheirKindComesAgain) {
  Open("BLOCK APPLICATION Main\nkey=1\nEND\nBLOCK DEPENDENCY\nbad\nend");
  for (int i = 0; i < 3; ++i) NextToken();
  EXPECT_EQ(Properties(), "KEY|1|APPLICATION|Main|3");
  NextToken();
  EXPECT_EQ(Properties(), "KEY|1|DEPENDENCY||4") << "the name of the block before is gone";
  EXPECT_EQ(NextToken(), "5000 BlockParse.GetToken 35008(5)");
  EXPECT_EQ(NextToken(), "end") << "goes on behind the bad line";
  for (int i = 0; i < 2; ++i) EXPECT_EQ(NextToken(), "eof");
  EXPECT_EQ(Properties(), "KEY|1|DEPENDENCY||6");
  EXPECT_TRUE(parser.ParseKeyValue("a = b") && parser.ParseBlock("block c d"));
  EXPECT_TRUE(parser.ParseEnd("end") && !parser.ParseEnd("a = b"));
  EXPECT_FALSE(parser.ParseKeyValue("five") || parser.ParseBlock("a = c"));
  EXPECT_EQ(Properties(), "A|b|C|d|6");
}

TEST_F(BlockParserTest, PositionsAre16Bit) {
  const std::string sFull(32767, 'x');  // so that what follows stands beyond
  const std::string sFits(32766, 'x');  // so that it is the last that fits
  const struct {
    const char* sCase;
    std::string sLine;
    bool bOverflow;
    std::int32_t lLine = 3;  // what CurrentLine then is
  } cases[] = {
      {"last = that fits", sFits + "=v", false},
      {"= beyond", sFull + "=v", true},
      {"first space beyond", sFull + " =v", true},
      {"type and name apart beyond", "BLOCK " + sFull + " n", true},
      {"tab beyond: the line does not count", "k=v" + sFull + "\t", true, 2},
      {"a later space beyond is ordinary text", "k =" + sFull + " v", false},
      {"a long value without spaces", "k=" + sFull, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.sCase);
    Open("BLOCK TYPE Name\nkey=1\n" + c.sLine + "\nend");
    NextToken();
    NextToken();
    EXPECT_EQ(NextToken().starts_with("Line 3 of the setup list is too long: "), c.bOverflow);
    EXPECT_EQ(parser.CurrentLine(), c.lLine);
    EXPECT_EQ(Properties().starts_with("KEY|1|TYPE|Name|"), c.bOverflow);
    EXPECT_EQ(NextToken(), "end") << "the line is consumed";
  }
}

TEST_F(BlockParserTest, OpeningAndClosing) {
  Open("a=1\nb=2\n");
  NextToken();
  EXPECT_EQ(Failure([&] { parser.OpenFile("C:\\other", true); }),
            "5000 BlockParser.Open Not implemented at this time");
  EXPECT_EQ(NextToken(), "B=2") << "the open file stays at its position";
  EXPECT_NE(Failure([&] { parser.OpenFile("C:\\missing", false); }), "none");
  EXPECT_EQ(system.nOpenFiles, 0) << "the one before is closed";
  Open("c=3");
  EXPECT_EQ(parser.CurrentLine(), 0);
}

}  // namespace
}  // namespace trelin
