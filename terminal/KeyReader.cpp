#include "terminal/KeyReader.h"

#include <cerrno>

#include <unistd.h>

#include "engine/parser/characterClasses.h"

void KeyReader::beginLine(bool continuesFromAns) {
    continuesFromAns_ = continuesFromAns;
    mayBringAns_ = continuesFromAns;
    waiting_.clear();
    isLineDropped_ = false;
}

void KeyReader::endPaste(bool lineIsEmpty) {
    isPasting_ = false;
    // Where a paste ended with a line end, the sign for its own end came as the first key of the new line.
    mayBringAns_ = continuesFromAns_ && lineIsEmpty;
}

KeyReader::Outcome KeyReader::nextKey(wchar_t& key) {
    if (!waiting_.empty()) {
        key = waiting_.back();
        waiting_.pop_back();
        return Outcome::key;
    }
    const Outcome outcome = isLineDropped_ ? Outcome::key : nextTypedKey(key);
    if (outcome != Outcome::key) return outcome;
    if (isLineDropped_) {
        // The editor may be in the middle of a longer command and take the first one for a part of it.
        key = L'\n';
        return Outcome::key;
    }
    if (mayBringAns_ && !isPasting_ && key <= 0xFFFF && isPrecedenceOperator(static_cast<char16_t>(key))) {
        waiting_ = {key, L's', L'n'};
        key = L'a';
    }
    mayBringAns_ = false;
    return Outcome::key;
}

KeyReader::Outcome KeyReader::nextTypedKey(wchar_t& key) {
    for (;;) {
        unsigned char byte = 0;
        if (const Outcome outcome = nextByte(byte); outcome != Outcome::key || isLineDropped_) return outcome;
        switch (decoder_.take(byte)) {
            case Utf8Decoder::Step::more: break;
            case Utf8Decoder::Step::complete: key = static_cast<wchar_t>(decoder_.codePoint()); return Outcome::key;
            case Utf8Decoder::Step::illFormedBefore: byteToTakeAgain_ = byte; [[fallthrough]];
            case Utf8Decoder::Step::illFormed: key = static_cast<wchar_t>(replacementCharacter); return Outcome::key;
        }
    }
}

// One byte at a time: what is typed ahead of the program's end belongs to whoever reads next.
KeyReader::Outcome KeyReader::nextByte(unsigned char& byte) {
    if (byteToTakeAgain_) {
        byte = *byteToTakeAgain_;
        byteToTakeAgain_.reset();
        return Outcome::key;
    }
    for (;;) {
        if (const int signal = signals_.waitForInput(descriptor_); signal != 0) {
            obey(signal);
            if (isLineDropped_) return Outcome::key;
            continue;
        }
        const ssize_t count = read(descriptor_, &byte, 1);
        if (count > 0) return Outcome::key;
        if (count == 0) return Outcome::end;
        if (errno != EINTR && errno != EAGAIN) return Outcome::failed;
    }
}

void KeyReader::obey(int signal) {
    switch (signal) {
        case SIGINT:
            isLineDropped_ = true;
            isPasting_ = false;
            return;
        case SIGWINCH: owner_.resizeTerminal(); return;
        case SIGCONT: break;
        default: owner_.leaveTerminal(); signals_.actOn(signal);
    }
    owner_.returnToTerminal();
}
