#ifndef ZOERRLOG_JNI_ZOJAVATEXT_H
#define ZOERRLOG_JNI_ZOJAVATEXT_H

#include <jni.h>

namespace zoerrlog::jni {

/// The text of a Java string, in the virtual machine's UTF-8, for as long as the object lives. The
/// string itself stays the caller's. Used on the thread of its JNIEnv.
///
/// There is no text for a null string, nor for one that the virtual machine could not hand over;
/// the exception of the latter case is cleared.
class JavaText {
public:
    JavaText(JNIEnv* env, jstring string)
        : m_env(env),
          m_string(string),
          m_text(string != nullptr ? env->GetStringUTFChars(string, nullptr) : nullptr) {
        if (HasFailed()) {
            env->ExceptionClear();
        }
    }
    ~JavaText() {
        if (m_text != nullptr) {
            m_env->ReleaseStringUTFChars(m_string, m_text);
        }
    }
    JavaText(const JavaText&) = delete;
    JavaText& operator=(const JavaText&) = delete;

    const char* OrNull() const { return m_text; }
    const char* OrEmpty() const { return m_text != nullptr ? m_text : ""; }
    /// True when there was a string, but its text could not be had.
    bool HasFailed() const { return m_string != nullptr && m_text == nullptr; }

private:
    JNIEnv* const m_env;
    jstring m_string;
    const char* const m_text;
};

/// A local reference to an element of an array of strings, and the element's text.
class JavaElement {
public:
    JavaElement(JNIEnv* env, jobjectArray array, jsize index)
        : m_reference(env, array, index), m_text(env, m_reference.string) {}

    const JavaText& Text() const { return m_text; }

private:
    struct Reference {
        Reference(JNIEnv* environment, jobjectArray array, jsize index)
            : env(environment),
              string(static_cast<jstring>(env->GetObjectArrayElement(array, index))) {
            if (env->ExceptionCheck() != JNI_FALSE) {
                env->ExceptionClear();
            }
        }
        ~Reference() {
            if (string != nullptr) {
                env->DeleteLocalRef(string);
            }
        }
        Reference(const Reference&) = delete;
        Reference& operator=(const Reference&) = delete;

        JNIEnv* const env;
        jstring string;
    };

    Reference m_reference;  // outlives the text, which is given back through it
    JavaText m_text;
};

}  // namespace zoerrlog::jni

#endif
