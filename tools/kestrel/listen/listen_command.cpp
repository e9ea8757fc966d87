#include "listen_command.h"

#include "chart_folder.h"
#include "listening.h"

#include <chrono>

namespace kestrel::tool {

bool runListen(ListenRequest const& request) {
  ChartFolder folder(request.output, request.mostBytes);
  Listening listening({request.path}, folder,
                      {request.once, request.limit << 20, std::chrono::seconds(request.idle)});
  listening.run();
  return listening.good() || !request.once;
}

}  // namespace kestrel::tool
