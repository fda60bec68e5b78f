// Keywords and paths. The other families have a source each.

#include "libraries/corelib/source/services/ConfAgent.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/services/ConfAgentMessages.h"
#include "libraries/corelib/source/services/ConfMemory.h"

namespace TarvikCorelib {

void ConfAgent::registerKeyword(const std::string& keyword, const std::string& value) const {
    const auto param = allocate<Keyword_OutOfMemory, ConfKeywordParam>(keyword, value);
    ImsMessage message("conf", "keyword", "", param.get());
    if (!sendMessage(message))
        throw made<Keyword_ImsNotWorking>(messages::keywordImsNotWorking, here(), keyword, value);
}

std::string ConfAgent::processPath(const std::string& rawPath) const {
    const auto param = allocate<Keyword_OutOfMemory, ConfPathParam>(rawPath);
    ImsMessage message("conf", "rawpath", "", param.get());
    if (!sendMessage(message))
        throw made<Keyword_ImsNotWorking>(messages::pathImsNotWorking, here(), rawPath);
    return param->path;
}

}  // namespace TarvikCorelib
