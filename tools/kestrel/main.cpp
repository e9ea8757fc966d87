#include "command_line.h"

int main(int count, char** arguments) { return kestrel::tool::runCommandLine(count, arguments); }
