// The native methods of the Java class com.velmora.zoerrlog.ZoLogger. Each releases on every path
// what it took from the virtual machine, and leaves no exception behind, neither Java's nor C++'s.
#include <algorithm>
#include <array>
#include <exception>
#include <string>

#include <zoerrlog/base/ZoExport.h>
#include <zoerrlog/jni/ZoJavaText.h>
#include <zoerrlog/jni/ZoJavaTrace.h>
#include <zoerrlog/jni/ZoPlaceholders.h>
#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/logger/ZoLoggerList.h>
#include <zoerrlog/message/ZoErrLogMessage.h>
#include <zoerrlog/trace/ZoTraceData.h>
#include <zoxlate/zoxlate.h>

#define ZOERRLOG_JAVA(type) extern "C" ZOERRLOG_EXPORT type JNICALL

using namespace zoerrlog::jni;

namespace {

constexpr jsize kMostArguments = 5;
using Arguments = std::array<std::string, kMostArguments>;

constexpr jint kDone = 1;
constexpr jint kNotDone = 0;
constexpr jint kNoLogger = -1;
constexpr jint kConsole = 0;

constexpr unsigned int kComponentBits = 0xFFFF0000U;

// Where the two warnings say that they come from; tools look for these numbers.
constexpr int kLogMsgSourceLine = 376;
constexpr int kTraceMsgSourceLine = 601;

// The virtual machine cannot stand a C++ exception, such as that of exhausted memory.
template <typename Result, typename Action>
Result Guarded(Result otherwise, Action action) noexcept {
    try {
        return action();
    } catch (const std::exception&) {
        return otherwise;
    }
}

CZoLogger* ChooseLogger(const JavaText& name) {
    return *name.OrEmpty() == '\0' ? theLogger() : getMyLogger(name.OrEmpty());
}

CZoLogOutput* NewOutput(CZoLogger& logger, jint kind, const char* fileName, jint mode,
                        jint maxSizeMB, jint maxBackups) {
    return kind == kConsole ? logger.NewLogOutput(kind)
                            : logger.NewLogOutput(kind, fileName, mode, maxSizeMB, maxBackups);
}

// `install` gives the output to the logger; what that does not take is destroyed.
template <typename Install>
jint InstallOrDelete(CZoLogger& logger, CZoLogOutput* output, Install install) {
    if (install(output)) {
        return kDone;
    }
    logger.DeleteLogOutput(output);
    return kNotDone;
}

// The texts of the `count` elements, in order; the others are empty.
Arguments FetchArguments(JNIEnv* env, jobjectArray array, jsize count) {
    Arguments arguments;
    for (jsize i = 0; i < count; ++i) {
        const JavaElement element(env, array, i);
        arguments[static_cast<std::size_t>(i)] =
            element.Text().HasFailed() ? "<null>" : element.Text().OrEmpty();
    }
    return arguments;
}

jsize LengthOf(JNIEnv* env, jobjectArray array) {
    return array != nullptr ? env->GetArrayLength(array) : 0;
}

template <typename List>
void WriteError(CZoLogger& logger, const char* sourceFile, jint messageId, const List& arguments) {
    CZoErrLogMessage message(logger.ShouldUseLocalTime());
    message.FormatLogProlog(sourceFile, 0, 0);
    for (const auto& argument : arguments) {
        message.GetArgList() << argument;
    }
    message.FormatMessageA(static_cast<unsigned int>(messageId));
    // Java callers are told of no failure.
    static_cast<void>(logger.LogErrMsg(message));
}

/// A call of TraceMsg, and the writing of its line.
struct TraceCall {
    JNIEnv* env;
    jstring loggerName;
    jstring sourceFile;
    jstring function;
    unsigned int componentId;
    jstring transactionId;
    jstring message;

    /// `textOf` makes the text of the line of the message. It is asked, and the strings are
    /// fetched, only when the line is traced: most calls are of components that are not.
    template <typename TextOf>
    void Write(TextOf textOf) const {
        CZoLogger* const logger = ChooseLogger(JavaText(env, loggerName));
        if (logger == nullptr || !ShouldTraceNow(*logger, componentId)) {
            return;
        }
        // Not the thread's own record: native code may be in the middle of a line with that.
        CZoTraceData record;
        record.SetLogger(logger);
        if (!logger->ShouldTrace(componentId, &record)) {
            return;
        }
        const JavaText functionText(env, function);
        const JavaText transactionText(env, transactionId);
        const JavaText source(env, sourceFile);
        const JavaText pattern(env, message);
        const std::string text = textOf(pattern.OrEmpty());
        WriteTraceLine(
            record, {{kZoFieldFunction, functionText.OrEmpty()},
                     {kZoFieldMessage, text.c_str()},
                     {kZoFieldTransactionID, transactionText.OrEmpty()},
                     {kZoFieldSrcFile, CZoErrLogMessage::PathnameFindFilePart(source.OrEmpty())}});
    }
};

}  // namespace

ZOERRLOG_JAVA(jint)
Java_com_velmora_zoerrlog_ZoLogger_InitializeLog(JNIEnv* env, jclass /*caller*/, jstring loggerName,
                                                 jint outputKind, jstring fileName, jint mode,
                                                 jint maxSizeMB, jboolean useLocalTime,
                                                 jint maxBackups) {
    return Guarded(kNotDone, [&] {
        const JavaText file(env, fileName);
        CZoLogger* const logger = ChooseLogger(JavaText(env, loggerName));
        if (logger == nullptr) {
            return kNoLogger;
        }
        if (useLocalTime != JNI_FALSE) {
            logger->UseLocalTime(true);
        }
        CZoLogOutput* const output =
            NewOutput(*logger, outputKind, file.OrNull(), mode, maxSizeMB, maxBackups);
        if (output == nullptr) {
            return kNotDone;
        }
        return InstallOrDelete(*logger, output,
                               [logger](CZoLogOutput* made) { return logger->SetLogOutput(made); });
    });
}

ZOERRLOG_JAVA(jint)
Java_com_velmora_zoerrlog_ZoLogger_SetResourcesDirectory(JNIEnv* env, jclass /*caller*/,
                                                         jstring directory) {
    return Guarded(kNotDone, [&] {
        const JavaText name(env, directory);
        const bool taken =
            *name.OrEmpty() != '\0' && CZoXlate::SetResourceDirectory(name.OrEmpty());
        return taken ? kDone : kNotDone;
    });
}

ZOERRLOG_JAVA(jint)
Java_com_velmora_zoerrlog_ZoLogger_InitializeTrace(JNIEnv* env, jclass /*caller*/,
                                                   jstring loggerName, jint outputKind,
                                                   jstring fileName, jint mode, jint maxSizeMB,
                                                   jint format, jstring separator,
                                                   jstring configFile, jboolean useLocalTime,
                                                   jint maxBackups) {
    return Guarded(kNotDone, [&] {
        const JavaText config(env, configFile);
        const JavaText file(env, fileName);
        const JavaText between(env, separator);
        if (config.OrNull() == nullptr) {
            return kNotDone;
        }
        CZoLogger* const logger = ChooseLogger(JavaText(env, loggerName));
        if (logger == nullptr || *config.OrEmpty() == '\0') {
            return kNotDone;
        }
        CZoLogOutput* const output =
            NewOutput(*logger, outputKind, file.OrNull(), mode, maxSizeMB, maxBackups);
        return InstallOrDelete(*logger, output, [&](CZoLogOutput* made) {
            return logger->EnableTrace(made, format, between.OrNull(), config.OrEmpty(),
                                       useLocalTime != JNI_FALSE, false, false);
        });
    });
}

ZOERRLOG_JAVA(jint)
Java_com_velmora_zoerrlog_ZoLogger_LogMsg__Ljava_lang_String_2Ljava_lang_String_2ILjava_lang_String_2(
    JNIEnv* env, jclass /*caller*/, jstring loggerName, jstring sourceFile, jint messageId,
    jstring argument) {
    return Guarded(kDone, [&] {
        const JavaText source(env, sourceFile);
        const JavaText text(env, argument);
        if (CZoLogger* const logger = ChooseLogger(JavaText(env, loggerName))) {
            WriteError(*logger, source.OrEmpty(), messageId, std::array{text.OrEmpty()});
        }
        return kDone;
    });
}

ZOERRLOG_JAVA(jint)
Java_com_velmora_zoerrlog_ZoLogger_LogMsg__Ljava_lang_String_2Ljava_lang_String_2I_3Ljava_lang_String_2(
    JNIEnv* env, jclass /*caller*/, jstring loggerName, jstring sourceFile, jint messageId,
    jobjectArray arguments) {
    return Guarded(kDone, [&] {
        const JavaText source(env, sourceFile);
        CZoLogger* const logger = ChooseLogger(JavaText(env, loggerName));
        const jsize count = LengthOf(env, arguments);
        if (count > kMostArguments) {
            WarnOfTooManyArguments(static_cast<unsigned int>(messageId) & kComponentBits,
                                   "WARNING!!! Too many arguments in message.  Message not logged."
                                   "  Message ID is: %s",
                                   std::to_string(messageId).c_str(), kLogMsgSourceLine);
        } else if (count > 0 && logger != nullptr) {
            WriteError(*logger, source.OrEmpty(), messageId, FetchArguments(env, arguments, count));
        }
        return kDone;
    });
}

ZOERRLOG_JAVA(jint)
Java_com_velmora_zoerrlog_ZoLogger_TraceMsg__Ljava_lang_String_2Ljava_lang_String_2Ljava_lang_String_2ILjava_lang_String_2Ljava_lang_String_2_3Ljava_lang_String_2(
    JNIEnv* env, jclass /*caller*/, jstring loggerName, jstring sourceFile, jstring function,
    jint componentId, jstring transactionId, jstring message, jobjectArray arguments) {
    return Guarded(kDone, [&] {
        const TraceCall call{
            env,           loggerName, sourceFile, function, static_cast<unsigned int>(componentId),
            transactionId, message};
        const jsize count = LengthOf(env, arguments);
        if (count > kMostArguments) {
            WarnOfTooManyArguments(call.componentId,
                                   "WARNING!!! Too many arguments in message - Message not logged."
                                   "  Unformatted message is: %s",
                                   JavaText(env, message).OrEmpty(), kTraceMsgSourceLine);
        }
        call.Write([&](const char* text) {
            return count < 1 || count > kMostArguments
                       ? std::string(text)
                       : FillPlaceholders(text, FetchArguments(env, arguments, count));
        });
        return kDone;
    });
}

ZOERRLOG_JAVA(jint)
Java_com_velmora_zoerrlog_ZoLogger_TraceMsg__Ljava_lang_String_2Ljava_lang_String_2Ljava_lang_String_2ILjava_lang_String_2Ljava_lang_String_2(
    JNIEnv* env, jclass caller, jstring loggerName, jstring sourceFile, jstring function,
    jint componentId, jstring transactionId, jstring message) {
    return Java_com_velmora_zoerrlog_ZoLogger_TraceMsg__Ljava_lang_String_2Ljava_lang_String_2Ljava_lang_String_2ILjava_lang_String_2Ljava_lang_String_2_3Ljava_lang_String_2(
        env, caller, loggerName, sourceFile, function, componentId, transactionId, message,
        /*arguments=*/nullptr);
}

ZOERRLOG_JAVA(jboolean)
Java_com_velmora_zoerrlog_ZoLogger_TraceEnabledComponent(JNIEnv* env, jclass /*caller*/,
                                                         jstring loggerName, jint componentId) {
    return Guarded(jboolean{JNI_FALSE}, [&] {
        CZoLogger* const logger = ChooseLogger(JavaText(env, loggerName));
        const bool enabled =
            logger != nullptr && logger->TraceEnabled(static_cast<unsigned int>(componentId));
        return static_cast<jboolean>(enabled ? JNI_TRUE : JNI_FALSE);
    });
}

ZOERRLOG_JAVA(jboolean)
Java_com_velmora_zoerrlog_ZoLogger_TraceEnabled(JNIEnv* env, jclass caller, jstring loggerName) {
    constexpr jint kAnyComponent = 0;
    return Java_com_velmora_zoerrlog_ZoLogger_TraceEnabledComponent(env, caller, loggerName,
                                                                    kAnyComponent);
}
