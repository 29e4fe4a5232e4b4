// The running program: its place, its terminal, its memory, the time of its day.
#pragma once

#include <ctime>
#include <string>
#include <vector>

namespace tolmer::host {

// The program's own file, links followed, in UTF-8; empty where the system does not tell.
std::string runningProgram();

// The words after the program's name on its command line, in UTF-8.
std::vector<std::string> programWords(int argumentCount, char** arguments);

// What the system adds to a program's name: "", ".exe".
std::string programEnding();

// Whether the standard output is a terminal that takes colours by escape sequences.
bool outputIsTerminal();

// Bytes go out and come in as they are, line ends among them.
void makeStreamsBinary();

// Freed memory up to so many bytes stays with the program, since large blocks would each come fresh
// from the system and go back: for a program that ends soon, or for what a start takes.
void keepMemory(int bytes);

// Of what the program takes next, so many times two megabytes come in one large page each where the
// system has such: hundreds of small ones take longer than it takes to fill them.
void takeLargePages(int count);

// Broken down in local time; all zero where that cannot be done.
std::tm localTime(std::time_t seconds);
// The same in universal time.
std::tm universalTime(std::time_t seconds);

}  // namespace tolmer::host
