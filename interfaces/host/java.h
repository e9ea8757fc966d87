#pragma once

#include "export.h"

#include <string>

struct JNIEnv_;

/// A failure on the Java side. It is thrown by value, and by pointer where the thrower keeps the object.
class VEXA_API JException {
 public:
  /// An empty message.
  JException();
  /// `message` in UTF-8.
  explicit JException(std::string const& message);

  /// @{
  /// Copies have the same message.
  JException(JException const& other);
  JException& operator=(JException const& other);
  /// @}

  virtual ~JException();

  /// In UTF-8.
  std::string getMessage() const;

 private:
  std::string mMessage;
};

/// The process's Java VM.
class VEXA_API VexaJVM {
 public:
  /// Null where the host has none.
  static VexaJVM* GetInstance();

  /// Whether the VM runs.
  bool IsStarted();
  /// False if the VM does not run afterwards. At most one VM starts in the life of a process.
  bool StartJVM();
  /// The environment of the calling thread, or null.
  JNIEnv_* GetEnv();
  /// Attaches the calling thread; the environment becomes null where there is no VM. 0 is success.
  int AttachCurrentThread(JNIEnv_** environment);
};

/// Converts charts of older and foreign form into the current chart markup.
class VEXA_API LumoConverter {
 public:
  /// Null where the host has none.
  static LumoConverter* GetInstance();

  /// Whether the converter is ready.
  bool IsStarted();
  /// Makes the converter ready in the VM of that environment. False if it is not ready afterwards.
  bool StartConverter(JNIEnv_* environment);

  /// @{
  /// Translate a description in PDL, and upgrade a chart in LumoML 1.4. Each is true on success, with the
  /// markup in `out`; otherwise GetErrorMessage() says why.
  bool PDLtoXML(std::string const& in, std::string& out);
  bool UpgradeXML(std::string const& in, std::string& out);
  /// @}

  /// Of the last conversion: in UTF-8 after PDLtoXML, in the local code page after UpgradeXML. May be empty.
  std::string GetErrorMessage() const;
};

/// Applies style sheets to chart texts.
class VEXA_API plotDeskConverter {
 public:
  /// Never null.
  static plotDeskConverter* GetInstance();

  /// The reworked chart text. Empty where the sheet leaves the chart as it is or nothing can apply it.
  std::string applyStyleSheet(std::string const& styleSheet, std::string const& chart);
};

/// The way to the converter of visualization templates.
class VEXA_API ClientAdapter {
 public:
  virtual ~ClientAdapter();

  /// Takes a request and gives the reply, both XML texts in UTF-8. Empty where there is no reply.
  virtual std::string ConvertClientLumoTemplate(std::string const& request) = 0;
};

/// The host's adapter, which the host keeps. Never null.
VEXA_API ClientAdapter* GetAdapter();
