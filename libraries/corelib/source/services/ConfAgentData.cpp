// Data banks. The message type says what is read or written: a "-" in front removes it, a "+" adds
// to what is there.

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/services/ConfAgent.h"
#include "libraries/corelib/source/services/ConfAgentMessages.h"

namespace TarvikCorelib {

std::string ConfAgent::getData(const std::string& bank, const std::string& key) const {
    return queryData("string", bank, key).text;
}

std::string ConfAgent::extractData(const std::string& bank, const std::string& key) const {
    return queryData("-string", bank, key).text;
}

ConfAgent::Texts ConfAgent::getDataList(const std::string& bank, const std::string& key) const {
    return queryData("list", bank, key).list;
}

ConfAgent::Texts ConfAgent::extractDataList(const std::string& bank, const std::string& key) const {
    return queryData("-list", bank, key).list;
}

ConfAgent::Texts ConfAgent::getDataNames(const std::string& bank) const {
    return queryData("names", bank, "").names;
}

void ConfAgent::setData(const std::string& bank, const std::string& key,
                        const std::string& text) const {
    DataQueryParam param(bank, key);
    param.text = text;
    storeData("string", param);
}

void ConfAgent::setData(const std::string& bank, const std::string& key, const Texts& list) const {
    DataQueryParam param(bank, key);
    param.list = list;
    storeData("list", param);
}

void ConfAgent::setData(const std::string& bank, const Attributes& texts) const {
    DataQueryParam param(bank, "");
    param.map = texts;
    storeData("list", param);
}

void ConfAgent::addData(const std::string& bank, const std::string& key,
                        const std::string& text) const {
    DataQueryParam param(bank, key);
    param.text = text;
    storeData("+string", param);
}

void ConfAgent::addData(const std::string& bank, const std::string& key, const Texts& list) const {
    DataQueryParam param(bank, key);
    param.list = list;
    storeData("+list", param);
}

DataQueryParam ConfAgent::queryData(const char* form, const std::string& bank,
                                    const std::string& key) const {
    DataQueryParam param(bank, key);
    ImsMessage message("databank", "get", form, &param);
    if (!sendMessage(message))
        throw made<GetData_ImsNotWorking>(messages::getDataImsNotWorking, here(), bank);

    switch (param.status) {
    case DataQueryParam::BankNotFound:
        throw made<GetData_BankNotFound>(messages::getDataBankNotFound, here(), bank);
    case DataQueryParam::KeyNotFound:
        throw made<GetData_NotFound>(messages::getDataNotFound, here(), key, bank);
    default: return param;
    }
}

void ConfAgent::storeData(const char* form, DataQueryParam& param) const {
    const std::string bank = param.bank;
    ImsMessage message("databank", "set", form, &param);
    if (!sendMessage(message))
        throw made<SetData_ImsNotWorking>(messages::setDataImsNotWorking, here(), bank);
}

}  // namespace TarvikCorelib
