#pragma once

#include <jni.h>

#include <stdexcept>
#include <string>

namespace kestrel::host {

/// What stands in the way of a call into Java, as one line of text.
class JavaFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The local references of the calls made while it lives.
class JavaFrame {
 public:
  /// Throws JavaFailure where Java has no room for them.
  explicit JavaFrame(JNIEnv& environment);
  ~JavaFrame();
  JavaFrame(JavaFrame const&) = delete;
  JavaFrame& operator=(JavaFrame const&) = delete;

 private:
  JNIEnv& mEnvironment;
};

/// Text crosses as UTF-16 and documents as bytes: JNI's own narrow strings would lose characters beyond the
/// basic plane and U+0000. All of these throw JavaFailure where Java has no room, or where there is more than
/// it can hold in one array.
jstring toJava(JNIEnv& environment, std::string const& utf8);
jbyteArray toJavaBytes(JNIEnv& environment, std::string const& bytes);
/// Empty for null.
std::string fromJava(JNIEnv& environment, jstring text);
std::string fromJavaBytes(JNIEnv& environment, jbyteArray bytes);

/// Takes the exception that waits in the environment away and gives it; null where none waits.
jthrowable takeFailure(JNIEnv& environment);

/// The message of an exception: what `getMessage` says, or where that is nothing or `named` is set, what the
/// exception says of itself, which begins with its class. Never throws.
std::string messageOf(JNIEnv& environment, jthrowable failure, bool named);

/// Throws JavaFailure, with the exception's own text, where one waits in the environment.
void expectNoFailure(JNIEnv& environment);

}  // namespace kestrel::host
