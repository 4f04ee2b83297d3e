// A console for tests: called as "run_console_helper [/k MODE]", it prints and ends in the ways that real ones do.

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <thread>

namespace {

void Print(std::string_view text, int file = STDOUT_FILENO) {
  while (!text.empty()) {
    const ssize_t count = write(file, text.data(), text.size());
    if (count <= 0) _exit(99);
    text.remove_prefix(static_cast<size_t>(count));
  }
}

void Nap(int milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void PrintSlowly(std::string_view text, int milliseconds) {
  for (const char byte : text) {
    Print({&byte, 1});
    Nap(milliseconds);
  }
}

[[noreturn]] void SleepLong() {
  Nap(60000);
  _exit(98);
}

/// Starts a process that outlives this one and keeps the pipe open; prints its identifier.
void StartBackground() {
  const pid_t child = fork();
  if (child == 0) SleepLong();
  Print(std::to_string(child) + "\n");
}

void Hang() {
  StartBackground();
  SleepLong();
}

const std::map<std::string, std::function<void()>> kModes{
    {"exit 3", [] { Print("three\r\nC:\\T>"), _exit(3); }},
    {"silent", [] {}},
    {"no last newline", [] { Print("half a line"); }},
    {"both", [] { Print("out\n"), Print("err\n", STDERR_FILENO), Print("out\rC:\\T>"); }},
    {"bytes", [] { PrintSlowly("*ERROR: \xC3\xA4\x84 \xE2\x82\xAC\r\r\nC:\\T>", 1); }},
    {"slow bytes", [] { PrintSlowly("\xC3\xA4\xE2\x82\xAC\xE1", 70); }},
    {"flood", [] { Print(std::string(200000, 'x') + "\r\nC:\\T>"); }},
    {"early prompt", [] { Print("50%>"), Nap(200), Print("*ERROR late\r\nC:\\T>"); }},
    {"place",
     [] {
       char here[4096];
       char byte = 0;
       Print(getcwd(here, sizeof here));
       Print(read(STDIN_FILENO, &byte, 1) == 0 ? " nothing to read" : " input");
       Print(getpgrp() == getpid() ? " own group" : " same group");
     }},
    {"crash", [] { Print("before\n"), StartBackground(), raise(SIGKILL); }},
    {"background", [] { StartBackground(); }},
    {"closes", [] { Print("bye"), close(STDOUT_FILENO), close(STDERR_FILENO), Nap(150), _exit(4); }},
    {"hang", Hang},
    {"stubborn", [] { signal(SIGTERM, SIG_IGN), Hang(); }},
};

}  // namespace

int main(int argc, char** argv) {
  if (argc == 1) {
    Print("Test console\r\n\r\nC:\\T>");
    return 0;
  }
  const auto mode = argc == 3 && std::string_view(argv[1]) == "/k" ? kModes.find(argv[2]) : kModes.end();
  if (mode == kModes.end()) return 2;
  mode->second();
  return 0;
}
