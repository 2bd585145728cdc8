#pragma once
#include "services/xml/xmllist.h"

class TBaseSimToolServerClientCourier;

/// The document of a simulators file, filled from and read into a courier.
class HDLBUILDFILE_API TServerConfigurationFileXMLList : public TXMLList {
public:
    /// The courier stays the caller's and must outlive the list; null allowed: the document is then
    /// written without tools, and what is read is not interpreted.
    explicit TServerConfigurationFileXMLList(TBaseSimToolServerClientCourier* courier);

protected:
    void FillElements() override;
    /// Reads only a document that begins with its section. Always true.
    bool InterpretElements() override;

private:
    TBaseSimToolServerClientCourier* Courier;
};
