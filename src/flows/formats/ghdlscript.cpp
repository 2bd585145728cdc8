#include "flows/formats/exportwriter.h"
#include "flows/formats/formatwriters.h"
#include "flows/formats/shelltext.h"
#include "flows/formats/toolcalls.h"

namespace {

/// Writes the script.
class TGhdlScript {
public:
    explicit TGhdlScript(const TExportRequest& request) : Writer(request, "ghdl") {}

    TExported Write() {
        AddHead();
        for (const TPlanSource& source : Writer.GetPlan().Sources)
            if (source.Language == LANGUAGE_VHDL) AddSource(source);
        for (const TBuildTop* const top : Writer.ListTops(LANGUAGE_VHDL)) AddTop(*top);
        Writer.LoseOtherLanguages({LANGUAGE_VHDL});
        return Writer.Take();
    }

private:
    const TPlanSettings& Settings() const { return Writer.SettingsOf(LANGUAGE_VHDL); }
    std::vector<std::string> Options(TPlanStep step) {
        return Writer.OptionsFor(kWordsOfGhdl, LANGUAGE_VHDL, step);
    }
    void AddHead();
    void AddSource(const TPlanSource& source);
    void AddTop(const TBuildTop& top);

    TExportWriter Writer;
};

// The working directory of the libraries is one: GHDL finds libraries of each other there.
void TGhdlScript::AddHead() {
    Writer.AddLine("#!/bin/sh");
    Writer.AddLine("set -e");
    Writer.AddLine("cd \"$(dirname \"$0\")\"");
    Writer.AddLine("GHDL=${GHDL:-ghdl}");
    Writer.AddLine("mkdir -p ghdl");
    Writer.AddLine("options=\"--std=" + GhdlStandard(Settings()) + " --workdir=ghdl -Pghdl\"");
}

void TGhdlScript::AddSource(const TPlanSource& source) {
    RefuseQuoted(Writer.WordOf(source.Path), &Writer);
    Writer.AddLine("$GHDL -a $options --work=" + ShellWord(source.Library) +
                   ShellWords(Options(STEP_ANALYSE)) + " " + ShellWord(Writer.WordOf(source.Path)));
}

void TGhdlScript::AddTop(const TBuildTop& top) {
    Writer.AddLine(
        "$GHDL --elab-run $options --work=" + ShellWord(top.Library) +
        ShellWords(JoinedWords({Options(STEP_ELABORATE), GhdlUnitOf(top), Options(STEP_RUN)})));
}

}  // namespace

TExported WriteGhdlScript(const TExportRequest& request) {
    return TGhdlScript(request).Write();
}
