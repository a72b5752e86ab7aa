#include "store/ConfigInfo.h"

std::wstring ConfigInfo::stringTok(std::wstring& text, const std::wstring& delimiters) {
    const std::size_t end = text.find_first_of(delimiters);
    std::wstring token = text.substr(0, end);
    text.erase(0, text.find_first_not_of(delimiters, token.size()));
    return token;
}

int ConfigInfo::createTokenVector(std::vector<std::wstring>& tokens, std::wstring text, const std::wstring& delimiters) {
    tokens.clear();
    std::size_t begin = text.find_first_not_of(delimiters);
    while (begin != std::wstring::npos) {
        const std::size_t end = text.find_first_of(delimiters, begin);
        tokens.push_back(text.substr(begin, end == std::wstring::npos ? end : end - begin));
        begin = text.find_first_not_of(delimiters, end);
    }
    return static_cast<int>(tokens.size());
}
