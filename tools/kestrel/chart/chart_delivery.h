#pragma once

#include "kestrelhost/channel.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>

namespace kestrel::tool {

/// A file that is removed unless it gets its final name: nobody takes half a capture for a whole one.
class UnfinishedFile {
 public:
  explicit UnfinishedFile(std::filesystem::path finalName);
  ~UnfinishedFile();
  UnfinishedFile(UnfinishedFile const&) = delete;
  UnfinishedFile& operator=(UnfinishedFile const&) = delete;

  std::string path() const { return mPath.string(); }
  std::string finalName() const { return mFinalName.string(); }
  void finish() const;

 private:
  void remove() const;

  std::filesystem::path mFinalName;
  std::filesystem::path mPath;
};

/// The way of one chart, or of what is sent instead of one: to a capture file, to a listener on a socket, or
/// to both. A listener that fails does not keep it from the file.
class ChartDelivery {
 public:
  /// `folder` gets capture.kcap; `address` is "unix:PATH". One of them may be empty. `what` is what messages
  /// call it. Throws a Problem where the file cannot be made, the address is none, or nobody listens there.
  ChartDelivery(std::string const& folder, std::string const& address, std::string what = "chart");
  ~ChartDelivery();
  ChartDelivery(ChartDelivery const&) = delete;
  ChartDelivery& operator=(ChartDelivery const&) = delete;

  std::shared_ptr<host::Channel> channel() const;

  /// Completes the delivery of a chart that the library says is sent, or not. Throws a Problem where it did
  /// not arrive everywhere.
  void finish(bool sent);

  /// Where the chart went, for the user.
  std::string name() const;
  std::size_t messages() const;
  std::size_t bytes() const;

 private:
  class Ways;
  void openFile(std::string const& folder);
  void openSocket(std::string const& address);

  std::unique_ptr<UnfinishedFile> mFile;
  std::string mAddress;
  std::string mWhat;
  std::shared_ptr<Ways> mWays;
};

}  // namespace kestrel::tool
