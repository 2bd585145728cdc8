#include "cli/filereports.h"

std::string ReadErrorText(const TXMLReadError& error) {
    if (error.Missing) return error.File + ": the file does not exist";
    if (error.Line == 0) return error.File + ": " + error.Reason;
    return error.File + ":" + std::to_string(error.Line) + ":" + std::to_string(error.Column) +
           ": " + error.Reason;
}
