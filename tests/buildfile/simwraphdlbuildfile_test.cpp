#include "buildfile/simwraphdlbuildfile.h"
#include "projectfiles/hdlsourcefile.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include <gtest/gtest.h>

namespace {

/// A general configuration that records, when it is destroyed, whether the configuration of
/// `source` is destroyed already.
class LastToGo : public TProjectSimGeneralConfig {
public:
    LastToGo(THdlSourceFile* source, std::string* note) : Source(source), Note(note) {}
    ~LastToGo() override { *Note += Source->GetProjectLanguageConfig() ? "too early" : "last"; }

private:
    THdlSourceFile* Source;
    std::string* Note;
};

TEST(SimWrapHdlBuildFile, DeletesTheLanguageConfigurationsFirst) {
    std::string note;
    THdlSourceFile source("/p/a.vhd");
    {
        TSimWrapHdlBuildFile build;
        TProjectSimLanguageConfig config;
        build.AddLanguageConfig(LANGUAGE_VHDL, &config);
        source.SetProjectLanguageConfig(build.GetProjectLanguageConfig(LANGUAGE_VHDL));
        build.SetGeneralConfiguration(new LastToGo(&source, &note));
    }
    EXPECT_EQ(note, "last");
}

}  // namespace
