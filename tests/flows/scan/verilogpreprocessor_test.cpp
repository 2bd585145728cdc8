#include "flows/scan/verilogpreprocessor.h"
#include "tests/flows/scan/scannedtext.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace {

using TFiles = std::map<std::string, std::string>;

const std::vector<TScanDefine> kDefines = {{"YES", ""}, {"NAME", "given"}, {"FILE", "\"f.vh\""}};

/// The texts of the tokens, with parts of open conditions as "{a | b}".
std::string TokensOf(std::string_view text, const TFiles& files = {},
                     std::string* included = nullptr) {
    TIncludeFiles includes([&](const std::string& path) {
        const auto found = files.find(path);
        return found == files.end() ? std::optional<std::string>() : found->second;
    });
    TScanOptions options;
    options.Defines = kDefines;
    options.IncludeFolders = {"inc"};
    options.Includes = &includes;
    std::vector<TScannedInclude> found;
    TVerilogPreprocessor source(text, "src/f.v", options, &found);
    std::string tokens;
    TVerilogToken token;
    for (source.Next(&token); !token.Is(TVerilogTokenKind::End); source.Next(&token)) {
        if (!tokens.empty()) tokens += ' ';
        if (token.Is(TVerilogTokenKind::Fork))
            tokens += "{";
        else if (token.Is(TVerilogTokenKind::Turn))
            tokens += "|";
        else if (token.Is(TVerilogTokenKind::Join))
            tokens += "}";
        else
            tokens += token.Text;
    }
    if (included)
        for (const TScannedInclude& include : found) *included += TextOf(include);
    return tokens;
}

struct TRow {
    const char* Text;
    const char* Tokens;
};

void ExpectTokens(const std::vector<TRow>& rows) {
    for (const TRow& row : rows) EXPECT_EQ(TokensOf(row.Text), row.Tokens) << row.Text;
}

}  // namespace

TEST(VerilogPreprocessor, DecidesConditionsByDefines) {
    ExpectTokens({
        {"`ifdef YES a `else b `endif c", "a c"},
        {"`ifndef YES a `else b `endif c", "b c"},
        {"`undef YES\n`ifdef YES a `else b `endif c", "b c"},
        {"`define A\n`ifdef A a `elsif B b `else c `endif d", "a d"},
        {"`define A\n`undef A\n`ifdef A a `elsif YES b `else c `endif d", "b d"},
        {"`undef A\n`ifdef A a `elsif A b `else c `endif d", "c d"},
        {"`ifdef YES `ifndef YES a `else b `endif `endif c", "b c"},
        {"`ifndef YES `ifdef YES a `else b `endif `define C\n`endif `ifdef C c `endif", "{ c }"},
        {"`ifndef YES // `endif\n /* `endif */ \"`endif\" a `endif b", "b"},
        {"`ifndef YES\n`define A `endif \\\n `endif\na `endif b", "b"},
    });
}

TEST(VerilogPreprocessor, TakesBothPartsOfOpenConditions) {
    ExpectTokens({
        {"`ifdef A a `else b `endif c", "{ a | b } c"},
        {"`ifndef A a `endif c", "{ a } c"},
        {"`ifdef A a `elsif B b `elsif YES c `elsif C d `else e `endif f", "{ a | b | c } f"},
        {"`undef N\n`ifdef N a `elsif B b `elsif N c `else e `endif f", "{ b | e } f"},
        {"`ifdef A `ifdef A a `else b `endif `ifdef B c `endif `else `ifdef A d `else e `endif "
         "`endif",
         "{ a { c } | e }"},
        {"`ifdef (A && B)\n a `else b `endif", "{ a | b }"},
        {"`ifdef A a `endif `ifdef A b `endif", "{ a } { b }"},
    });
}

TEST(VerilogPreprocessor, RemembersWhatIsDefinedUnderOpenConditions) {
    ExpectTokens({
        {"`ifdef A\n`define B\n`ifdef B a `else b `endif `endif `ifdef B c `else d `endif",
         "{ a } { c | d }"},
        {"`define B\n`ifdef A\n`undef B\n`endif `ifdef B c `else d `endif", "{ } { c | d }"},
        {"`define B\n`ifdef A\n`define B\n`endif `ifdef B c `else d `endif", "{ } c"},
        {"`define N x\n`ifdef A\n`define N y\n`endif `N", "{ } `N"},
        {"`define N x\n`ifdef A\n`define N x\n`endif `N", "{ } x"},
        {"`ifdef A\n`ifdef B\n`define C\n`endif `endif `ifdef C c `else d `endif",
         "{ { } } { c | d }"},
        // Defined either way.
        {"`ifndef A a\n`define A\n`endif `ifdef A c `else d `endif", "{ a } c"},
        {"`ifdef A a `else\n`define A\n`endif `ifdef A c `else d `endif", "{ a | } c"},
        {"`ifdef A a `elsif B `define A\n`endif `ifdef A c `else d `endif", "{ a | } { c | d }"},
    });
}

TEST(VerilogPreprocessor, TakesGuardsForOpen) {
    ExpectTokens({
        {"`ifndef G\n// why\n`define G 1\na `endif `ifndef G b `endif", "a"},
        {"`ifndef G a\n`define G\n`endif", "{ a }"},
        {"`ifndef G\n`define H\n`endif", "{ }"},
        {"`ifndef G\n`define G\n`else a `endif b", "b"},
        {"`ifdef G\n`define G\n a `endif", "{ a }"},
    });
}

TEST(VerilogPreprocessor, PassesOverWhatHasNoEnd) {
    ExpectTokens({
        {"`ifdef A a", "{ a }"},
        {"`ifdef A `ifdef B a `else b", "{ { a | b } }"},
        {"`else a `endif b `elsif C c", "a b c"},
        {"`ifdef A a `else b `else c `endif d", "{ a | b } d"},
        {"`define", ""},
        {"`define F(a, b\na", "a"},
        {"`include", ""},
        {"(* a", ""},
        {"`ifdef", "{ }"},
    });
}

TEST(VerilogPreprocessor, PutsWordsInThePlaceOfMacros) {
    ExpectTokens({
        {"`NAME `OTHER a", "given `OTHER a"},
        {"`define EMPTY\n`define COMMENT // nothing\na `EMPTY b `COMMENT c", "a b c"},
        {"`define A `B // why\n`define B c\n`A", "c"},
        {"`define A `B\n`define B `A\n`A x", "`A x"},
        {"`define A \\a+b\n`A x", "\\a+b x"},
        {"`define A b c\n`define F(x) x\n`A `F(y)", "`A `F ( y )"},
        {"`define A(x) x\n`A", "`A"},
        {"`define A (x)\n`A", "`A"},
        {"`undefineall `NAME `ifdef YES a `endif", "`NAME { a }"},
    });
}

TEST(VerilogPreprocessor, PassesOverDirectivesAndAttributes) {
    ExpectTokens({
        {"`timescale 1 ns/100ps module", "module"},
        {"`timescale 1ns a", "a"},
        {"`default_nettype none a", "a"},
        {"`line 3 \"x\" 1\na", "a"},
        {"`uselib dir=x module libext=.v\na", "a"},
        {"`celldefine a `endcelldefine b `resetall c", "a b c"},
        {"`pragma foo module\na", "a"},
        {"(* keep = \"*)\", x = (1 * (2)) *) a @(*) b", "a @ ( * ) b"},
        {"(* a\n`ifdef X\n, b\n`endif\n*) c", "{ } c"},
        {"(* a ; b", "; b"},
        {"(*) (* *) a", "( * ) a"},
        {"`begin_keywords \"1364-2001\" class `end_keywords class", "class class"},
    });
}

TEST(VerilogPreprocessor, PassesOverEnvelopes) {
    ExpectTokens({
        {"a `protected\nmodule `endif \" /*\n `endprotected b\nc", "a c"},
        {"a\n`pragma protect begin_protected\nmodule x `endprotected\n`pragma protect "
         "end_protected\nb",
         "a b"},
        {"a\n`protect begin_protected\nmodule\n`protect end_protected\nb", "a b"},
        {"a\n`pragma protect begin\nb\n`pragma protect end\nc", "a b c"},
        {"a `protect\nb `endprotect c", "a b c"},
        {"a `protected\nb", "a"},
    });
}

TEST(VerilogPreprocessor, ReadsIncludedFiles) {
    const TFiles files = {{"src/own.vh", "`define OWN\nown"},
                          {"src/f.vh", "f"},
                          {"inc/own.vh", "wrong"},
                          {"inc/lib.vh", "lib `include \"sub/near.vh\" `include \"own.vh\" x"},
                          {"inc/sub/near.vh", "`include \"next.vh\""},
                          {"inc/sub/next.vh", "next"},
                          {"inc/open.vh", "`ifdef A a"},
                          {"inc/ends.vh", "`endif `else b"},
                          {"inc/self.vh", "self `include <self.vh>"},
                          {"inc/v95.vh", "`begin_keywords \"1364-1995\""},
                          {"inc/(* a.vh", "b *) c"}};
    const struct {
        const char* Text;
        const char* Tokens;
        const char* Includes;
    } rows[] = {
        {"`include \"own.vh\"\n`ifdef OWN a `else b `endif", "own a",
         "include own.vh is src/own.vh 1:10\n"},
        {"`include <own.vh> a", "wrong a", "include <own.vh> is inc/own.vh 1:10\n"},
        {"`include `FILE\n`include `NAME\na", "f a", "include f.vh is src/f.vh 1:1\n"},
        {"`include <lib.vh>", "lib next wrong x",
         "include <lib.vh> is inc/lib.vh 1:10\n"
         "include sub/near.vh is inc/sub/near.vh #1:1:14\n"
         "include next.vh is inc/sub/next.vh #2:1:10\n"
         "include own.vh is inc/own.vh #1:1:37\n"},
        {"`include \"none.vh\"\na", "a", "include none.vh 1:10\n"},
        {"`ifdef A\n`include \"f.vh\"\n`endif", "{ f }", "maybe include f.vh is src/f.vh 2:10\n"},
        {"`ifndef YES\n`include \"f.vh\"\n`endif", "", ""},
        {"`include <open.vh> b `endif c", "{ a } b c", "include <open.vh> is inc/open.vh 1:10\n"},
        {"`ifdef A `include <ends.vh> c `endif d", "{ b c } d",
         "maybe include <ends.vh> is inc/ends.vh 1:19\n"},
        {"`include <self.vh> a", "self a",
         "include <self.vh> is inc/self.vh 1:10\n"
         "include <self.vh> is inc/self.vh #1:1:15\n"},
        {"`include \"open\na", "a", ""},
        {"`include \"\" a", "a", ""},
    };
    for (const auto& row : rows) {
        std::string includes;
        EXPECT_EQ(TokensOf(row.Text, files, &includes), row.Tokens) << row.Text;
        EXPECT_EQ(includes, row.Includes) << row.Text;
    }
}

// Each level doubles what it holds, but no file is entered more often than it may be.
TEST(VerilogPreprocessor, EndsIncludesThatMultiply) {
    TFiles files;
    for (int level = 0; level < 40; ++level) {
        const std::string next = "`include <" + std::to_string(level + 1) + ">\n";
        files["inc/" + std::to_string(level)] = next + next;
    }
    files["inc/40"] = "x ";
    const std::string tokens = TokensOf("`include <0>\n", files);
    EXPECT_EQ(std::count(tokens.begin(), tokens.end(), 'x'), 256);
}

TEST(VerilogPreprocessor, NamesIdentifiersAlike) {
    const struct {
        const char* Text;
        const char* Name;
    } rows[] = {{"\\ab$1 ", "ab$1"}, {"\\a+b ", "\\a+b"},       {"\\1a ", "\\1a"},
                {"\\end ", "\\end"}, {"gr\xF6 ", "gr\xC3\xB6"}, {"gr\xC3\xB6", "gr\xC3\xB6"}};
    for (const auto& row : rows) {
        TVerilogLexer lexer(row.Text);
        EXPECT_EQ(TVerilogPreprocessor::NameOf(lexer.Next()), row.Name) << row.Text;
    }
}
