#pragma once

// The options of the Verilog-to-VHDL and VHDL-to-Verilog translators: the folder's face to its
// users.

#include "services/designdatabase/projectcomponent.h"
#include "translation/v2vcommandlineoption.h"
#include "translation/v2vtranslationfileoption.h"
#include "translation/v2vtranslationoption.h"
#include "translation/v2vtranslationoptionslist.h"
#include "translation/v2vtranslationstringoption.h"
