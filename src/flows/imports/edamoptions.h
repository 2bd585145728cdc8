#pragma once
#include "flows/imports/listdialects.h"
#include "flows/imports/treeimport.h"
#include "flows/plan/toolwords.h"
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Reads "tool_options" of EDAM: what a build has words for of those of Icarus Verilog, Verilator
/// and GHDL. Everything else in it is told.
class TEdamOptions {
public:
    /// `tree` must outlive the object, and stand still.
    explicit TEdamOptions(TTreeImport* tree) : Tree(*tree) {}

    void Read();
    /// The year that an option asks for; "" for none. VHDL's is set already.
    const std::string& GetVerilogYear() const { return VerilogYear.Text; }
    const std::string& GetVhdlYear() const { return VhdlYear; }
    /// Sets the year of Verilog. Icarus Verilog is told the latest one for the sake of single
    /// files, too: that counts where no file asks for it.
    void SetVerilogYear(bool hasSystemVerilogFile);
    /// Adds the library files that options name. What a file lists is known before.
    void AddLibraryFiles();
    /// Tells of a mode of Verilator that does not follow from the files, be they of options.
    void CheckMode(bool hasVerilogFile, bool hasProgram);

private:
    struct TWord {
        std::string Text;
        const TTree* From;
        bool IsPlain;  ///< else a makefile or shell makes something else of it
    };
    using TWords = std::vector<TWord>;
    using TWordsAt = TWords::const_iterator;

    TWords WordsIn(const TTree& tool, std::string_view key);
    void ReadIcarus(const TTree& tool);
    void ReadVerilator(const TTree& tool);
    void ReadGhdl(const TTree& tool);
    void TakeVerilogWords(const TWords& words, TListTool tool);
    TWordsAt TakeUnknown(TWordsAt word, TWordsAt end, TListTool tool, std::vector<TWords>* kept);
    bool TakeIcarusWord(const TWord& word);
    TWordsAt TakeOption(const TListOption& option, TWordsAt word, TWordsAt end, TListTool tool);
    bool IsNew(TListMeaning meaning, const TWord& value, TListTool tool);
    void Take(TListMeaning meaning, const TWord& value, TListTool tool);
    void AddDefines();
    static TWords LastOfNames(const TWords& defines);
    void TakeGhdlWords(const TWords& words, TPlanStep step);
    bool HasOperand(TWordsAt word, TWordsAt end, const TListOption* option) const;
    static std::vector<std::string> OperandsOf(TWordsAt word, TWordsAt end);
    void Lose(TWordsAt word, TWordsAt end);
    void MergeKept(std::vector<TWords> kept);
    void SetYear(const std::string& year, const TWord& word);

    TTreeImport& Tree;
    TImportedText VerilogYear;
    std::string VhdlYear;
    const TTree* Mode = nullptr;
    TWords LibraryFiles;
    std::vector<TWords> Kept;                  // options of Verilog, each with its operand
    std::map<TListTool, TWords> Defines;       // of the tools that the file has options of
    std::map<std::string, std::size_t> Taken;  // what both tools of Verilog may say, with its place
    std::map<TListTool, std::set<std::string>> TakenOf;
    std::map<std::pair<TListTool, TListMeaning>, std::size_t> LastTaken;
};
