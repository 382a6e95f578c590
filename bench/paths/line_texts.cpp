#include <bench/paths/line_texts.h>

namespace bench {

const char* const kSourceFile = "Login.cpp";
const int kSourceLine = 88;
const char* const kMessageKey = "zo-login-00001";
const char* const kFunction = "CheckPassword";
const char* const kUser = "webmaster";
const char* const kUnwantedUser = "nobody";
const char* const kAddress = "192.0.2.17";
const char* const kPort = "38926";
const char* const kStatus = "failed";
const int kAttempt = 3;
const char* const kAttemptPort = "22";

}  // namespace bench
