#include "platform/Terminal.h"

#include <windows.h>

#include <array>

namespace marquill {

namespace {

/// A pipe cannot be waited for together with other things; it is looked at this often.
constexpr std::chrono::milliseconds pipeLook(10);

HANDLE stopAsked = nullptr;

BOOL WINAPI controlHandler(DWORD event) {
    SetEvent(stopAsked);
    // The process ends when the handler of a closed window returns; until then the take is written.
    if (event == CTRL_CLOSE_EVENT || event == CTRL_LOGOFF_EVENT || event == CTRL_SHUTDOWN_EVENT) {
        Sleep(INFINITE);
    }
    return TRUE;
}

}  // namespace

class Terminal::System {
  public:
    System() : _input(GetStdHandle(STD_INPUT_HANDLE)) {
        stopAsked = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        SetConsoleCtrlHandler(controlHandler, TRUE);
        _hasKeyboard = GetConsoleMode(_input, &_before) != 0;
        if (_hasKeyboard) {
            SetConsoleMode(_input, ENABLE_PROCESSED_INPUT);
        }
    }
    System(const System&) = delete;
    System& operator=(const System&) = delete;
    ~System() {
        if (_hasKeyboard) {
            FlushConsoleInputBuffer(_input);
            SetConsoleMode(_input, _before);
        }
        SetConsoleCtrlHandler(controlHandler, FALSE);
        CloseHandle(stopAsked);
    }

    bool hasKeyboard() const { return _hasKeyboard; }

    Input wait(std::chrono::milliseconds patience) {
        return _hasKeyboard ? waitForKeyboard(patience) : waitForPipe(patience);
    }

  private:
    Input waitForKeyboard(std::chrono::milliseconds patience) {
        const std::array<HANDLE, 2> waited{stopAsked, _input};
        const DWORD ready = WaitForMultipleObjects(static_cast<DWORD>(waited.size()), waited.data(), FALSE,
                                                   static_cast<DWORD>(patience.count()));
        if (ready == WAIT_OBJECT_0) {
            return {Event::stop};
        }
        if (ready != WAIT_OBJECT_0 + 1) {
            return {};
        }
        INPUT_RECORD record = {};
        DWORD count = 0;
        if (!ReadConsoleInputW(_input, &record, 1, &count)) {
            return {Event::endOfInput};
        }
        if (record.EventType != KEY_EVENT || !record.Event.KeyEvent.bKeyDown) {
            return {};
        }
        const wchar_t character = record.Event.KeyEvent.uChar.UnicodeChar;
        if (record.Event.KeyEvent.wVirtualKeyCode == VK_ESCAPE) {
            return {Event::escape};
        }
        return character > 0 && character < 0x80 ? Input{Event::key, static_cast<char>(character)} : Input{};
    }

    Input waitForPipe(std::chrono::milliseconds patience) {
        const auto end = std::chrono::steady_clock::now() + patience;
        do {
            if (WaitForSingleObject(stopAsked, 0) == WAIT_OBJECT_0) {
                return {Event::stop};
            }
            DWORD available = 0;
            const bool isPipe = GetFileType(_input) == FILE_TYPE_PIPE;
            if (!isPipe || !PeekNamedPipe(_input, nullptr, 0, nullptr, &available, nullptr) ||
                available > 0) {
                return read();
            }
            Sleep(static_cast<DWORD>(pipeLook.count()));
        } while (std::chrono::steady_clock::now() < end);
        return {};
    }

    Input read() {
        char byte = 0;
        DWORD count = 0;
        if (!ReadFile(_input, &byte, 1, &count, nullptr) || count == 0) {
            return {Event::endOfInput};
        }
        return byte == '\x1b' ? Input{Event::escape} : Input{Event::key, byte};
    }

    HANDLE _input;
    DWORD _before = 0;
    bool _hasKeyboard = false;
};

Terminal::Terminal() : _system(std::make_unique<System>()) {}

Terminal::~Terminal() = default;

bool Terminal::hasKeyboard() const {
    return _system->hasKeyboard();
}

bool Terminal::hasScreen() const {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_OUTPUT_HANDLE), &mode) != 0;
}

Terminal::Input Terminal::wait(std::chrono::milliseconds patience) {
    return _system->wait(patience);
}

}  // namespace marquill
