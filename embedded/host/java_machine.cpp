#include "java_machine.h"

#include <dlfcn.h>
#include <sys/mman.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <system_error>

namespace kestrel::host {

namespace {

#ifdef __APPLE__
constexpr char libraryInHome[] = "/lib/server/libjvm.dylib";
#else
constexpr char libraryInHome[] = "/lib/server/libjvm.so";
#endif

/// What the machine takes beside its heap: compiled code, class data, its own structures. Measured, with room
/// to spare.
constexpr std::size_t besideHeap = 384;
constexpr std::size_t mebibyte = std::size_t{1} << 20;

std::mutex& starting() {
  static std::mutex& mutex = *new std::mutex;
  return mutex;
}

/// A machine that finds no room for its heap ends the process, so it is asked for room first.
bool hasRoom(std::size_t mebibytes) {
  std::size_t const size = mebibytes * mebibyte;
  void* const room = ::mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (room == MAP_FAILED) return false;
  ::munmap(room, size);
  return true;
}

using CreateMachine = jint(JNICALL*)(JavaVM**, void**, void*);
using CreatedMachines = jint(JNICALL*)(JavaVM**, jsize, jsize*);

/// The machine that runs in this process already, or null.
JavaVM* runningMachine(void* library) {
  auto const list = reinterpret_cast<CreatedMachines>(::dlsym(library, "JNI_GetCreatedJavaVMs"));
  JavaVM* machine = nullptr;
  jsize count = 0;
  if (list == nullptr || list(&machine, 1, &count) != JNI_OK || count == 0) return nullptr;
  return machine;
}

/// The options of a machine that lives inside a process that is not its own: it leaves the signals alone, and
/// starts fast with little memory rather than running at its best for hours.
std::vector<std::string> options(unsigned int heap) {
  return {"-Xmx" + std::to_string(heap) + "m",
          "-Xrs",
          "-XX:+UseSerialGC",
          "-XX:TieredStopAtLevel=1",
          "-XX:ReservedCodeCacheSize=48m",
          "-XX:CompressedClassSpaceSize=64m",
          "-XX:-UsePerfData",
          "-Djava.awt.headless=true"};
}

/// @return what JNI says of it
jint createMachine(CreateMachine create, std::vector<std::string>& texts, JavaVM*& machine) {
  std::vector<JavaVMOption> list;
  list.reserve(texts.size());
  for (std::string& text : texts) list.push_back({text.data(), nullptr});
  JavaVMInitArgs arguments{JNI_VERSION_10, static_cast<jint>(list.size()), list.data(), JNI_FALSE};
  void* environment = nullptr;
  return create(&machine, &environment, &arguments);
}

std::string linkError() {
  char const* const error = ::dlerror();
  return error != nullptr ? error : "it cannot be loaded";
}

/// Numbers compare as numbers, so that 17 stands above 9.
bool isNewer(std::string const& left, std::string const& right) {
  auto const number = [](std::string const& text) {
    std::size_t const digit = text.find_first_of("0123456789");
    return digit == std::string::npos ? 0L : std::strtol(text.c_str() + digit, nullptr, 10);
  };
  long const first = number(left);
  long const second = number(right);
  return first != second ? first > second : left < right;
}

/// The homes in a folder that holds one runtime in each of its folders.
void addHomesIn(std::string const& folder, std::string const& below, std::vector<std::string>& homes) {
  std::error_code error;
  std::vector<std::string> names;
  for (auto const& entry : std::filesystem::directory_iterator(folder, error))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end(), isNewer);
  for (std::string const& name : names)
    homes.push_back((std::filesystem::path(folder) / name).string() + below);
}

/// The home of the command `java`, which is often a link into it.
void addHomeOfCommand(std::vector<std::string>& homes) {
  char const* const path = std::getenv("PATH");
  std::string const folders = path != nullptr ? path : "";
  for (std::size_t start = 0; start <= folders.size();) {
    std::size_t const end = std::min(folders.find(':', start), folders.size());
    std::error_code error;
    auto const command = std::filesystem::canonical(folders.substr(start, end - start) + "/java", error);
    if (!error) {
      homes.push_back(command.parent_path().parent_path().string());
      return;
    }
    start = end + 1;
  }
}

std::vector<std::string> usualHomes() {
  std::vector<std::string> homes;
  char const* const chosen = std::getenv("JAVA_HOME");
  if (chosen != nullptr && *chosen != '\0') homes.emplace_back(chosen);
  addHomeOfCommand(homes);
#ifdef __APPLE__
  homes.emplace_back("/opt/homebrew/opt/openjdk/libexec/openjdk.jdk/Contents/Home");
  homes.emplace_back("/usr/local/opt/openjdk/libexec/openjdk.jdk/Contents/Home");
  addHomesIn("/Library/Java/JavaVirtualMachines", "/Contents/Home", homes);
#else
  homes.emplace_back("/usr/lib/jvm/default-java");
  for (char const* folder : {"/usr/lib/jvm", "/usr/java", "/opt/java"}) addHomesIn(folder, "", homes);
#endif
  return homes;
}

/// A thread that ended without being detached would stay in the machine's books.
class Attachment {
 public:
  explicit Attachment(JavaVM* machine) : mMachine(machine) {}
  ~Attachment() { mMachine->DetachCurrentThread(); }
  Attachment(Attachment const&) = delete;
  Attachment& operator=(Attachment const&) = delete;

 private:
  JavaVM* mMachine;
};

}  // namespace

JavaMachine& JavaMachine::instance() {
  static JavaMachine machine;
  return machine;
}

bool JavaMachine::started() {
  std::lock_guard const lock(starting());
  return mMachine != nullptr;
}

std::string JavaMachine::start(std::string const& library, unsigned int heap) {
  std::lock_guard const lock(starting());
  return mMachine != nullptr ? std::string() : create(library, heap);
}

std::string JavaMachine::create(std::string const& library, unsigned int heap) {
  // Never unloaded: a machine cannot be.
  void* const loaded = ::dlopen(library.c_str(), RTLD_NOW | RTLD_GLOBAL);
  if (loaded == nullptr) return linkError();
  mMachine = runningMachine(loaded);
  if (mMachine != nullptr) return {};
  auto const create = reinterpret_cast<CreateMachine>(::dlsym(loaded, "JNI_CreateJavaVM"));
  if (create == nullptr) return "it is no Java virtual machine";
  if (!hasRoom(heap + besideHeap))
    return "the process may not take " + std::to_string(heap + besideHeap) + " MiB of address space";
  std::vector<std::string> texts = options(heap);
  jint const result = createMachine(create, texts, mMachine);
  if (result == JNI_OK) return {};
  mMachine = nullptr;
  // Why, it says itself on standard error.
  return "it does not start (code " + std::to_string(result) + ")";
}

JNIEnv* JavaMachine::environment() {
  if (!started()) return nullptr;
  void* environment = nullptr;
  return mMachine->GetEnv(&environment, JNI_VERSION_10) == JNI_OK ? static_cast<JNIEnv*>(environment)
                                                                  : nullptr;
}

jint JavaMachine::attach(JNIEnv** environment) {
  *environment = this->environment();
  if (*environment != nullptr) return JNI_OK;
  if (!started()) return JNI_ERR;
  void* attached = nullptr;
  jint const result = mMachine->AttachCurrentThread(&attached, nullptr);
  if (result != JNI_OK) return result;
  *environment = static_cast<JNIEnv*>(attached);
  static thread_local Attachment const untilTheThreadEnds(mMachine);
  return result;
}

std::vector<std::string> machineLibraries(std::string const& home) {
  std::vector<std::string> const homes = home.empty() ? usualHomes() : std::vector<std::string>{home};
  std::vector<std::string> libraries;
  for (std::string const& each : homes) {
    std::string library = each + libraryInHome;
    if (std::find(libraries.begin(), libraries.end(), library) == libraries.end())
      libraries.push_back(std::move(library));
  }
  return libraries;
}

}  // namespace kestrel::host
