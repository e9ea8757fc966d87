// Java in this process: where it is found, and the way into our archives.

#include "embedded_java.h"

#include "java_call.h"
#include "java_machine.h"
#include "local_code_page.h"

#include "host/java.h"
#include "kestrelhost/host.h"

#include <jni.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace kestrel::host {

namespace {

constexpr int productPaths = 3;
constexpr char mainArchive[] = "kestrel-java.jar";
constexpr char converterClass[] = "kestrel.converter.Converter";
constexpr char refusalClass[] = "kestrel.converter.ConversionException";
constexpr char notRunning[] = "the Java converter does not run: the log says why";
#ifdef __APPLE__
constexpr char usualPlaces[] = ", in /Library/Java/JavaVirtualMachines, or where the command java leads";
#else
constexpr char usualPlaces[] =
    ", in the folders of /usr/lib/jvm, /usr/java and /opt/java, or where the command java leads";
#endif
constexpr char runtimeNeeded[] = "install a Java runtime of version 17 or later, or set JAVA_HOME to one";

bool isFile(std::string const& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

void note(std::string const& message) { Host::current().log->note(message); }

std::string joined(std::vector<std::string> const& texts) {
  std::string all;
  for (std::string const& text : texts) all += (all.empty() ? "" : ", ") + text;
  return all;
}

/// What the thread's last conversion was refused for.
std::string& lastMessage() {
  static thread_local std::string message;
  return message;
}

/// What the thread's last upgrade could not carry over.
std::string& lastReport() {
  static thread_local std::string report;
  return report;
}

/// Callers catch failures of a conversion by pointer and leave the object alone. What is no refusal is a
/// fault on this side, which somebody has to mend: it goes to the log, too.
[[noreturn]] void throwKept(std::string const& message) {
  note("A conversion failed in Java: " + message);
  static thread_local JException kept;
  kept = JException(message);
  throw &kept;  // NOLINT(misc-throw-by-value-catch-by-reference): callers expect it so
}

jclass loaded(JNIEnv& java, jobject loader, char const* name) {
  jmethodID load =
      java.GetMethodID(java.GetObjectClass(loader), "loadClass", "(Ljava/lang/String;)Ljava/lang/Class;");
  expectNoFailure(java);
  auto* const found = static_cast<jclass>(java.CallObjectMethod(loader, load, toJava(java, name)));
  expectNoFailure(java);
  return found;
}

jclass systemClass(JNIEnv& java, char const* name) {
  jclass found = java.FindClass(name);
  expectNoFailure(java);
  return found;
}

jobject made(JNIEnv& java, jclass type, char const* signature, jobject argument) {
  jmethodID constructor = java.GetMethodID(type, "<init>", signature);
  expectNoFailure(java);
  jobject object = java.NewObject(type, constructor, argument);
  expectNoFailure(java);
  return object;
}

jobject called(JNIEnv& java, jobject object, char const* method, char const* signature) {
  jmethodID operation = java.GetMethodID(java.GetObjectClass(object), method, signature);
  expectNoFailure(java);
  jobject result = java.CallObjectMethod(object, operation);
  expectNoFailure(java);
  return result;
}

jobject urlOf(JNIEnv& java, std::string const& path) {
  JavaFrame const frame(java);
  jobject file = made(java, systemClass(java, "java/io/File"), "(Ljava/lang/String;)V", toJava(java, path));
  jobject uri = called(java, file, "toURI", "()Ljava/net/URI;");
  return java.NewGlobalRef(called(java, uri, "toURL", "()Ljava/net/URL;"));
}

/// A loader of the classes in those archives, whoever started the machine and with whatever class path.
jobject loaderOf(JNIEnv& java, std::vector<std::string> const& archives) {
  jobjectArray urls =
      java.NewObjectArray(static_cast<jsize>(archives.size()), systemClass(java, "java/net/URL"), nullptr);
  expectNoFailure(java);
  for (std::size_t i = 0; i < archives.size(); ++i) {
    jobject url = urlOf(java, archives[i]);
    java.SetObjectArrayElement(urls, static_cast<jsize>(i), url);
    java.DeleteGlobalRef(url);
  }
  return made(java, systemClass(java, "java/net/URLClassLoader"), "([Ljava/net/URL;)V", urls);
}

}  // namespace

/// The converter's classes in one machine.
class JavaClasses {
 public:
  /// Throws JavaFailure where they are not as expected.
  JavaClasses(JNIEnv& java, std::vector<std::string> const& archives) {
    JavaFrame const frame(java);
    jobject loader = loaderOf(java, archives);
    jclass converter = loaded(java, loader, converterClass);
    jclass refusal = loaded(java, loader, refusalClass);
    mLoader = java.NewGlobalRef(loader);
    mConverter = static_cast<jclass>(java.NewGlobalRef(converter));
    mRefusal = static_cast<jclass>(java.NewGlobalRef(refusal));
  }

  /// Closes the archives, where the thread may speak to the machine.
  ~JavaClasses() {
    JNIEnv* const java = JavaMachine::instance().environment();
    if (java == nullptr) return;
    jmethodID close = java->GetMethodID(java->GetObjectClass(mLoader), "close", "()V");
    if (close != nullptr) java->CallVoidMethod(mLoader, close);
    java->ExceptionClear();
    for (jobject reference : {mLoader, static_cast<jobject>(mConverter), static_cast<jobject>(mRefusal)})
      java->DeleteGlobalRef(reference);
  }

  JavaClasses(JavaClasses const&) = delete;
  JavaClasses& operator=(JavaClasses const&) = delete;

  /// Calls a static method of the converter.
  /// @return null where it refuses what it was given, with the reason in `message`
  template <typename... Arguments>
  jobject call(JNIEnv& java, std::string& message, char const* method, char const* signature,
               Arguments... arguments) const {
    jmethodID operation = java.GetStaticMethodID(mConverter, method, signature);
    expectNoFailure(java);
    jobject result = java.CallStaticObjectMethod(mConverter, operation, arguments...);
    jthrowable failure = takeFailure(java);
    if (failure == nullptr) return result;
    bool const refused = java.IsInstanceOf(failure, mRefusal) == JNI_TRUE;
    std::string const text = messageOf(java, failure, !refused);
    if (!refused) throw JavaFailure(text);
    message = text;
    return nullptr;
  }

 private:
  jobject mLoader;
  jclass mConverter;
  jclass mRefusal;
};

std::shared_ptr<JavaSide> makeJava(JavaSettings settings) {
  return std::make_shared<EmbeddedJava>(std::move(settings));
}

EmbeddedJava::EmbeddedJava(JavaSettings settings) : mSettings(std::move(settings)) {}
EmbeddedJava::~EmbeddedJava() = default;

std::string EmbeddedJava::library() const {
  std::vector<std::string> const places = machineLibraries(mSettings.home);
  auto const found = std::find_if(places.begin(), places.end(), isFile);
  if (found != places.end()) return *found;
  note("Java is not used: there is no virtual machine in " + joined(places) +
       (mSettings.home.empty() ? usualPlaces : "") + "; " + runtimeNeeded);
  return {};
}

std::vector<std::string> EmbeddedJava::archives() const {
  std::vector<std::string> folders;
  if (mSettings.archives.empty()) {
    folders = {Host::current().paths->basePath(productPaths) + "java", KESTREL_JAVA_DIR};
  } else {
    folders = {mSettings.archives};
  }
  for (std::string const& folder : folders) {
    if (!isFile(folder + "/" + mainArchive)) continue;
    std::vector<std::string> found;
    std::error_code error;
    for (auto const& entry : std::filesystem::directory_iterator(folder, error))
      if (entry.path().extension() == ".jar") found.push_back(entry.path().string());
    std::sort(found.begin(), found.end());
    return found;
  }
  note(std::string("Java is not used: there is no ") + mainArchive + " in " + joined(folders) +
       "; build kestrel with KESTREL_JAVA, or set KESTREL_SHARE to the share folder of an installed one");
  return {};
}

bool EmbeddedJava::hasMachine() { return machineStarted() || !library().empty(); }
bool EmbeddedJava::machineStarted() { return JavaMachine::instance().started(); }

bool EmbeddedJava::startMachine() {
  std::string const file = library();
  if (file.empty()) return false;
  std::string const failure = JavaMachine::instance().start(file, std::max(mSettings.heap, 16U));
  if (!failure.empty()) note("Java is not used: " + file + ": " + failure + "; " + runtimeNeeded);
  return failure.empty();
}

JNIEnv_* EmbeddedJava::environment() { return JavaMachine::instance().environment(); }

int EmbeddedJava::attachThread(JNIEnv_** environment) { return JavaMachine::instance().attach(environment); }

bool EmbeddedJava::hasConverter() { return converterStarted() || !archives().empty(); }
bool EmbeddedJava::converterStarted() { return mClasses != nullptr; }

bool EmbeddedJava::startConverter(JNIEnv_* environment) {
  if (environment == nullptr) return false;
  std::lock_guard const lock(mLoading);
  if (mClasses != nullptr) return true;
  std::vector<std::string> const files = archives();
  if (files.empty()) return false;
  try {
    mClasses = std::make_unique<JavaClasses>(*environment, files);
    return true;
  } catch (JavaFailure const& failure) {
    note("Java is not used: " + joined(files) + ": " + failure.what() + "; " + runtimeNeeded);
    return false;
  }
}

JavaClasses const* EmbeddedJava::running() {
  if (mClasses != nullptr && environment() != nullptr) return mClasses.get();
  lastMessage() = notRunning;
  return nullptr;
}

bool EmbeddedJava::convertPdl(std::string const& in, std::string& out) {
  lastMessage().clear();
  JavaClasses const* const converter = running();
  if (converter == nullptr) return false;
  JNIEnv& java = *environment();
  try {
    JavaFrame const frame(java);
    auto* const markup = static_cast<jbyteArray>(
        converter->call(java, lastMessage(), "pdlToXml", "(Ljava/lang/String;)[B", toJava(java, in)));
    if (markup == nullptr) return false;
    out = fromJavaBytes(java, markup);
    return true;
  } catch (JavaFailure const& failure) {
    throwKept(failure.what());
  }
}

bool EmbeddedJava::upgrade(std::string const& in, std::string& out) {
  lastMessage().clear();
  lastReport().clear();
  JavaClasses const* const converter = running();
  if (converter == nullptr) return false;
  JNIEnv& java = *environment();
  try {
    JavaFrame const frame(java);
    auto* const results = static_cast<jobjectArray>(
        converter->call(java, lastMessage(), "upgradeWithReport", "([B)[[B", toJavaBytes(java, in)));
    // Callers read this message, and only this one, in the local code page.
    lastMessage() = toLocalCodePage(lastMessage());
    if (results == nullptr) return false;
    out = fromJavaBytes(java, static_cast<jbyteArray>(java.GetObjectArrayElement(results, 0)));
    lastReport() = fromJavaBytes(java, static_cast<jbyteArray>(java.GetObjectArrayElement(results, 1)));
    return true;
  } catch (JavaFailure const& failure) {
    throwKept(failure.what());
  }
}

std::string EmbeddedJava::errorMessage() { return lastMessage(); }
std::string EmbeddedJava::upgradeReport() { return lastReport(); }

bool EmbeddedJava::ready(JNIEnv_*& java) {
  return (machineStarted() || startMachine()) && attachThread(&java) == 0 && startConverter(java);
}

std::string EmbeddedJava::applyStyleSheet(std::string const& styleSheet, std::string const& chart) {
  JNIEnv* java = nullptr;
  if (!ready(java)) throw JException("style sheets are not applied: the log says why");
  try {
    JavaFrame const frame(*java);
    std::string refused;
    auto* const reworked =
        static_cast<jbyteArray>(mClasses->call(*java, refused, "applyStyleSheet", "([B[B)[B",
                                               toJavaBytes(*java, styleSheet), toJavaBytes(*java, chart)));
    if (reworked != nullptr) return fromJavaBytes(*java, reworked);
    note("A style sheet is not applied: " + refused);
    throw JException(refused);
  } catch (JavaFailure const& failure) {
    note(std::string("A style sheet is not applied: ") + failure.what());
    throw JException(failure.what());
  }
}

std::string EmbeddedJava::localStore() const {
  return mSettings.store.empty() ? Host::current().paths->basePath(productPaths) : mSettings.store;
}

std::string EmbeddedJava::convertTemplate(std::string const& request) {
  JNIEnv* java = nullptr;
  if (!ready(java)) {
    note("a visualization template is not converted: the line before says why");
    return {};
  }
  try {
    JavaFrame const frame(*java);
    std::string refused;
    auto* const reply = static_cast<jbyteArray>(mClasses->call(
        *java, refused, "convertTemplate", "([BLjava/lang/String;Ljava/lang/String;)[B",
        toJavaBytes(*java, request), toJava(*java, localStore()), toJava(*java, mSettings.repository)));
    return fromJavaBytes(*java, reply);
  } catch (JavaFailure const& failure) {
    note(std::string("A visualization template is not converted: ") + failure.what());
    throw JException(failure.what());
  }
}

}  // namespace kestrel::host
