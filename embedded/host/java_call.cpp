#include "java_call.h"

#include "model/chartstring.h"

#include <cstddef>
#include <limits>

namespace kestrel::host {

namespace {

/// More than any call here makes.
constexpr jint localReferences = 32;

jsize sizeInJava(std::size_t size) {
  if (size > static_cast<std::size_t>(std::numeric_limits<jsize>::max()) - 8)
    throw JavaFailure("a text of " + std::to_string(size) + " bytes is more than Java can hold in one piece");
  return static_cast<jsize>(size);
}

template <typename Reference>
Reference present(JNIEnv& environment, Reference reference) {
  if (reference == nullptr) {
    expectNoFailure(environment);
    throw JavaFailure("Java has no memory left");
  }
  return reference;
}

/// The text that a method without parameters gives; empty where it fails.
std::string textFrom(JNIEnv& environment, jthrowable failure, char const* method) {
  jmethodID operation =
      environment.GetMethodID(environment.GetObjectClass(failure), method, "()Ljava/lang/String;");
  if (operation == nullptr) {
    environment.ExceptionClear();
    return {};
  }
  auto* const text = static_cast<jstring>(environment.CallObjectMethod(failure, operation));
  if (takeFailure(environment) != nullptr) return {};
  return fromJava(environment, text);
}

}  // namespace

JavaFrame::JavaFrame(JNIEnv& environment) : mEnvironment(environment) {
  if (mEnvironment.PushLocalFrame(localReferences) == 0) return;
  mEnvironment.ExceptionClear();
  throw JavaFailure("Java has no memory left");
}

JavaFrame::~JavaFrame() { mEnvironment.PopLocalFrame(nullptr); }

jstring toJava(JNIEnv& environment, std::string const& utf8) {
  ChartString text;
  text.assignUTF8(utf8);
  static_assert(sizeof(jchar) == sizeof(char16_t));
  return present(environment, environment.NewString(reinterpret_cast<jchar const*>(text.xc_str()),
                                                    sizeInJava(text.length())));
}

jbyteArray toJavaBytes(JNIEnv& environment, std::string const& bytes) {
  jsize const size = sizeInJava(bytes.size());
  jbyteArray array = present(environment, environment.NewByteArray(size));
  environment.SetByteArrayRegion(array, 0, size, reinterpret_cast<jbyte const*>(bytes.data()));
  return array;
}

std::string fromJava(JNIEnv& environment, jstring text) {
  if (text == nullptr) return {};
  jsize const length = environment.GetStringLength(text);
  std::u16string units(static_cast<std::size_t>(length), u'\0');
  environment.GetStringRegion(text, 0, length, reinterpret_cast<jchar*>(units.data()));
  ChartString characters;
  characters.assign(units.data(), units.data() + units.size());
  return characters.toUTF8();
}

std::string fromJavaBytes(JNIEnv& environment, jbyteArray bytes) {
  if (bytes == nullptr) return {};
  jsize const size = environment.GetArrayLength(bytes);
  std::string result(static_cast<std::size_t>(size), '\0');
  environment.GetByteArrayRegion(bytes, 0, size, reinterpret_cast<jbyte*>(result.data()));
  return result;
}

jthrowable takeFailure(JNIEnv& environment) {
  jthrowable failure = environment.ExceptionOccurred();
  if (failure != nullptr) environment.ExceptionClear();
  return failure;
}

std::string messageOf(JNIEnv& environment, jthrowable failure, bool named) {
  std::string const message = named ? std::string() : textFrom(environment, failure, "getMessage");
  return message.empty() ? textFrom(environment, failure, "toString") : message;
}

void expectNoFailure(JNIEnv& environment) {
  if (jthrowable failure = takeFailure(environment)) throw JavaFailure(messageOf(environment, failure, true));
}

}  // namespace kestrel::host
