#pragma once

namespace velmorath {

/// The program, on whatever host is installed. Returns the process's exit code.
int main(int argc, char** argv);

} // namespace velmorath
