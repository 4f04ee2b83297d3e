// Does what its arguments say, one after the other, with plain system calls so that nothing is held back:
//   out TEXT    prints TEXT           err TEXT    prints TEXT on the error stream
//   args ...    prints the rest, each in brackets          env NAME    prints the variable
//   cat         copies the input      fill        prints until nobody reads
//   status N    ends with it          signal N    sends itself the signal
//   sleep       sleeps for a minute   ignore N    ignores a signal    close    closes its input
// In TEXT "~r" and "~n" stand for CR and LF.
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string>

namespace {

void Print(int fd, const std::string& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '~' || i + 1 == text.size()) {
      plain += text[i];
      continue;
    }
    const char c = text[++i];
    plain += c == 'r' ? '\r' : '\n';
  }
  if (write(fd, plain.data(), plain.size()) < 0) _exit(99);
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    const std::string value = i + 1 < argc ? argv[i + 1] : "";
    if (word == "out" || word == "err") {
      Print(word == "out" ? 1 : 2, value);
      ++i;
    } else if (word == "args") {
      for (++i; i < argc; ++i) Print(1, std::string("[") + argv[i] + "]\n");
    } else if (word == "env") {
      const char* found = std::getenv(value.c_str());
      Print(1, std::string(found ? found : "(none)") + "\n");
      ++i;
    } else if (word == "cat") {
      char buffer[4096];
      for (ssize_t got = 0; (got = read(0, buffer, sizeof buffer)) > 0;) {
        if (write(1, buffer, std::size_t(got)) != got) return 98;
      }
    } else if (word == "fill") {
      const std::string block(4096, 'x');
      while (write(1, block.data(), block.size()) > 0) continue;
      return 97;
    } else if (word == "status") {
      return std::atoi(value.c_str());
    } else if (word == "signal") {
      raise(std::atoi(value.c_str()));
    } else if (word == "ignore") {
      signal(std::atoi(value.c_str()), SIG_IGN);
      ++i;
    } else if (word == "close") {
      close(0);
    } else if (word == "sleep") {
      sleep(60);
    } else {
      return 96;
    }
  }
  return 0;
}
