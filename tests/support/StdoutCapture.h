// Collects what the code under test writes to standard output, through the C stream and the
// file descriptor alike: while a capture lives, descriptor 1 points at a temporary file.
#pragma once

#include <cstdio>
#include <string>
#include <unistd.h>

class StdoutCapture {
public:
    StdoutCapture()
    {
        std::fflush(stdout);
        file = std::tmpfile();
        saved = dup(STDOUT_FILENO);
        if (file != nullptr && saved >= 0) dup2(fileno(file), STDOUT_FILENO);
    }
    ~StdoutCapture()
    {
        restore();
        if (file != nullptr) std::fclose(file);
    }

    StdoutCapture(const StdoutCapture&) = delete;
    StdoutCapture& operator=(const StdoutCapture&) = delete;

    // Ends the capture and returns everything written since it began.
    std::string text()
    {
        restore();
        std::string out;
        if (file == nullptr) return out;
        std::rewind(file);
        char buffer[4096];
        size_t got = 0;
        while ((got = std::fread(buffer, 1, sizeof buffer, file)) > 0) out.append(buffer, got);
        return out;
    }

private:
    void restore()
    {
        if (saved < 0) return;
        std::fflush(stdout);
        dup2(saved, STDOUT_FILENO);
        close(saved);
        saved = -1;
    }

    std::FILE* file = nullptr;
    int saved = -1;
};
