#pragma once
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include <string>
#include <utility>

/// An object that records its destruction.
template <class TObject>
class Mortal : public TObject {
public:
    Mortal(std::string name, std::string* grave) : Name(std::move(name)), Grave(grave) {}
    ~Mortal() override { *Grave += Name + " "; }

private:
    std::string Name;
    std::string* Grave;
};
using MortalGeneral = Mortal<TProjectSimGeneralConfig>;
using MortalLanguage = Mortal<TProjectSimLanguageConfig>;
