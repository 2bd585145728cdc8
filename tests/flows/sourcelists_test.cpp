#include "flows/sourcelists.h"
#include "buildfile/simwraphdlbuildfile.h"
#include "flows/buildchanges.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"
#include "tests/support/elementtext.h"
#include <gtest/gtest.h>
#include <sstream>

namespace {

const ISFileName* Name(const std::string& name) {
    return ISFileName::NewISFileName(("/p/" + name).c_str());
}

/// "a b(a) c": the VHDL sources of a build, with their dependencies.
void List(THdlBuildFile& build, const std::string& text) {
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const std::size_t open = word.find('(');
        IHdlSourceFile* source = AddSource(build, Name(word.substr(0, open)), LANGUAGE_VHDL);
        if (open == std::string::npos) continue;
        SetDependencies(build, *source, {Name(word.substr(open + 1, word.size() - open - 2))});
    }
}

std::string NameOf(const ISFileName* file) {
    return file ? file->GetNameAndExt() : "none";
}

/// What differs between two builds.
struct Difference {
    Difference(const std::string& before, const std::string& after) {
        List(BuildBefore, before);
        List(BuildAfter, after);
        Before = TSourceLists(BuildBefore, &Libraries);
        After = TSourceLists(BuildAfter, &Libraries);
    }

    std::string Changes() const {
        const TSourceListsDifference difference(Before, After);
        std::string text;
        for (const TListedChange& change : difference.GetChanges()) {
            if (!change.Before)
                text += "+" + NameOf(change.After->File);
            else if (!change.After)
                text += "-" + NameOf(change.Before->File);
            else if (change.IsMoved)
                text += NameOf(change.After->File) + ":" +
                        NameOf(difference.GetFileInFrontBefore(change)) + "->" +
                        NameOf(difference.GetFileInFrontAfter(change));
            else
                text += "!" + NameOf(change.After->File);
            text += " ";
        }
        return text;
    }

    /// The sources that are pushed of both.
    std::string Pushed() const {
        const TSourceListsDifference difference(Before, After);
        TXMLList before;
        TXMLList after;
        difference.Push(Name("b.xml"), Libraries, &before, &after);
        return TextsOf(before) + "| " + TextsOf(after);
    }
    static std::string TextsOf(const TXMLList& document) {
        std::string text;
        for (DListIterator<TElement*> element(document); element.NotAtTail(); ++element)
            if (element.Current()->ElemType == TElement::TEXT)
                text += element.Current()->Text.Str() + std::string(" ");
        return text;
    }

    TSimWrapHdlBuildFile BuildBefore;
    TSimWrapHdlBuildFile BuildAfter;
    TTextNumbers Libraries;
    TSourceLists Before;
    TSourceLists After;
};

}  // namespace

TEST(SourceLists, TellWhatBecameOfEachSource) {
    const struct {
        const char* Before;
        const char* After;
        const char* Changes;
        const char* Pushed;
    } rows[] = {
        {"a b c", "a b c", "", "| "},
        {"a b c", "a b c d", "+d ", "c | c d "},
        {"a b c", "d a b c", "+d ", "a | d a "},
        {"a b c d", "a b x y c d", "+x +y ", "b c | b x y c "},
        {"a b c d", "a c d", "-b ", "b | "},
        {"a b c d", "a x c d", "-b +x ", "a b c | a x c "},
        {"a b c d e", "b c d a e", "a:none->d ", "a b c d e | b c d a e "},
        {"a b c d e", "a d b c e", "d:c->a ", "a b c d e | a d b c e "},
        {"a b", "b a", "a:none->b ", "a b | b a "},
        {"a b c d", "d c b a", "d:c->none c:b->d a:none->b ", "a b c d | d c b a "},
        {"a b(a) c", "a b(c) c", "!b ", "b a | b c "},
        {"a b(a) c", "b(c) a c", "a:none->b !b ", "a b a c | b c a c "},
        {"a b c(a)", "a x b c(b)", "+x !c ", "a b c a | a x b c b "},
        {"", "a b", "+a +b ", "| a b "},
        {"a b", "", "-a -b ", "a b | "},
    };
    for (const auto& row : rows) {
        const Difference difference(row.Before, row.After);
        EXPECT_EQ(difference.Changes(), row.Changes) << row.Before << " -> " << row.After;
        EXPECT_EQ(difference.Pushed(), row.Pushed) << row.Before << " -> " << row.After;
        EXPECT_EQ(difference.Before == difference.After, std::string(row.Changes).empty());
    }
}

TEST(SourceLists, PushSourcesAsASaveDoes) {
    Difference difference("a b(a)", "a b(a)");
    IHdlSourceFile& source = *FindListed(difference.BuildAfter, Name("b")).Source;
    source.SetLibraryFlag(true);
    source.SetPrecompiledLibraryGroupName("lib");
    difference.After = TSourceLists(difference.BuildAfter, &difference.Libraries);
    const TSourceListsDifference found(difference.Before, difference.After);
    TXMLList before;
    TXMLList after;
    found.Push(Name("sub/b.xml"), difference.Libraries, &before, &after);
    EXPECT_EQ(ElementsOf(before),
              "START SourceFileGroup Language=VHDL\n"
              "START SourceFile Library=false PrecompiledLibrary=\n"
              "TEXT ../b\n"
              "START Dependency\n"
              "TEXT ../a\n"
              "END Dependency\n"
              "END SourceFile\n"
              "END SourceFileGroup\n");
    EXPECT_EQ(ElementsOf(after),
              "START SourceFileGroup Language=VHDL\n"
              "START SourceFile Library=true PrecompiledLibrary=lib\n"
              "TEXT ../b\n"
              "START Dependency\n"
              "TEXT ../a\n"
              "END Dependency\n"
              "END SourceFile\n"
              "END SourceFileGroup\n");
}
