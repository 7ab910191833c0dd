// rva-sdp: the SDP layer from the command line. Each command is one row of kCommands:
// its name, its synopsis, the options that take a value, and the function that runs it.
//
//   rva-sdp stream examples/volte-offer.sdp      # the stream a remote description declares
//   rva-sdp stream --media 1 - < offer.sdp
//   rva-sdp answer --port 40000 examples/volte-offer.sdp   # our answer and the stream we run
//   rva-sdp offer --address 2001:db8::1                     # our offer
//
// Exit status: 0 when the result is a success, 1 when it is a failure, 2 for a usage
// error or an unreadable file (one line on standard error).
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "OfferAnswer.h"
#include "SdpResult.h"
#include "SessionDescription.h"
#include "StreamConfig.h"
#include "StreamMapping.h"

using tessel::rva::StreamConfig;
using namespace tessel::rva::sdp;

namespace {

const char kProgram[] = "rva-sdp";
const int kExitSuccess = 0;
const int kExitFailure = 1;
const int kExitUsage = 2;

// A command line after the command name: options with their values, then the operands.
struct Arguments {
    std::map<std::string, std::string> options;
    std::vector<std::string> operands;
};

struct Command {
    const char* name;
    const char* synopsis;
    const char* description;
    std::vector<std::string> valueOptions;  // options followed by a value, e.g. "--media"
    std::size_t operands;                   // how many operands it takes
    int (*run)(const Arguments& arguments);
};

int runStream(const Arguments& arguments);
int runOffer(const Arguments& arguments);
int runAnswer(const Arguments& arguments);

const Command kCommands[] = {
    {"stream", "stream [--media N] FILE|-",
     "Reads a description received from the other end (FILE, or standard input for -) and\n"
     "prints the stream it declares: each skipped format or attribute as \"note: <text>\",\n"
     "the stream (also when it fails its check), then \"result: <result>\". --media chooses\n"
     "the media section, counted from 0 (default 0).",
     {"--media"}, 1, runStream},
    {"offer", "offer [--address IP] [--port N] [--direction sendrecv|sendonly|recvonly|inactive]",
     "Prints the media section we offer with the engine's default capabilities, as written\n"
     "on the wire (lines end in CRLF); on a refusal, \"result: <result>\" instead. Defaults:\n"
     "--address 127.0.0.1, --port 49152, --direction sendrecv.",
     {"--address", "--port", "--direction"}, 0, runOffer},
    {"answer", "answer [--address IP] [--port N] [--direction sendrecv|sendonly|recvonly|inactive] FILE|-",
     "Answers the first audio section of an offer (FILE, or standard input for -) with the\n"
     "engine's default capabilities: prints the answer section as written on the wire\n"
     "(CRLF; the rejected-stream line when the stream is refused), an empty line, each note\n"
     "as \"note: <text>\", the negotiated stream when there is one, then \"result: <result>\".\n"
     "Options and defaults as for offer.",
     {"--address", "--port", "--direction"}, 1, runAnswer},
};

void printUsage(std::FILE* out) {
    std::fprintf(out, "Usage: %s COMMAND [OPTIONS] [FILE|-]\n\nCommands:\n", kProgram);
    for (const Command& command : kCommands) {
        std::fprintf(out, "  %s %s\n", kProgram, command.synopsis);
        std::string indented = "      ";
        for (const char* c = command.description; *c != '\0'; ++c) {
            indented += *c;
            if (*c == '\n') {
                indented += "      ";
            }
        }
        std::fprintf(out, "%s\n\n", indented.c_str());
    }
    std::fprintf(out,
                 "  %s --help\n      Prints this text.\n\n"
                 "Exit status: 0 when the result is a success, 1 when it is a failure, 2 for a\n"
                 "usage error or an unreadable file.\n",
                 kProgram);
}

int usageError(const std::string& problem) {
    std::fprintf(stderr, "%s: %s (see %s --help)\n", kProgram, problem.c_str(), kProgram);
    return kExitUsage;
}

bool isHelp(const std::string& argument) { return argument == "--help" || argument == "-h"; }

// Reads the whole of `path` ("-": standard input) into `text`, at most one byte more than
// a description may hold so that an endless input ends too; the parser refuses the rest.
bool readInput(const std::string& path, std::string& text, std::string& error) {
    std::FILE* file = path == "-" ? stdin : std::fopen(path.c_str(), "rb");
    if (file == nullptr) {
        error = std::strerror(errno);
        return false;
    }
    char buffer[4096];
    std::size_t read = 0;
    while (text.size() <= SessionDescription::MAX_TEXT_BYTES &&
           (read = std::fread(buffer, 1, sizeof buffer, file)) > 0) {
        text.append(buffer, read);
    }
    const bool failed = std::ferror(file) != 0;
    if (failed) {
        error = std::strerror(errno);
    }
    if (file != stdin) {
        std::fclose(file);
    }
    return !failed;
}

// Reads a non-negative decimal number that fits in std::size_t.
bool readIndex(const std::string& text, std::size_t& value) {
    if (text.empty() || text.size() > 9) {
        return false;
    }
    value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            return false;
        }
        value = value * 10 + static_cast<std::size_t>(c - '0');
    }
    return true;
}

// Splits the arguments after the command name into options and operands.
bool readArguments(const Command& command, int argc, char** argv, Arguments& arguments, std::string& problem) {
    for (int i = 0; i < argc; ++i) {
        const std::string argument = argv[i];
        const bool takesValue = std::find(command.valueOptions.begin(), command.valueOptions.end(), argument) !=
                                command.valueOptions.end();
        if (takesValue) {
            if (i + 1 == argc) {
                problem = argument + " needs a value";
                return false;
            }
            arguments.options[argument] = argv[++i];
        } else if (argument.size() > 1 && argument[0] == '-') {
            problem = "unknown option " + argument + " for " + command.name;
            return false;
        } else {
            arguments.operands.push_back(argument);
        }
    }
    if (arguments.operands.size() != command.operands) {
        problem = std::string(command.name) + " takes " + std::to_string(command.operands) + " operand(s): " +
                  command.synopsis;
        return false;
    }
    return true;
}

// The text of the file (or standard input) named by the operand; false, with a line on
// standard error, when it cannot be read.
bool readOperand(const Arguments& arguments, std::string& text) {
    const std::string& path = arguments.operands[0];
    std::string error;
    if (!readInput(path, text, error)) {
        std::fprintf(stderr, "%s: cannot read %s: %s\n", kProgram, path.c_str(), error.c_str());
        return false;
    }
    return true;
}

void printNotes(const std::vector<std::string>& notes) {
    for (const std::string& note : notes) {
        std::printf("note: %s\n", note.c_str());
    }
}

int runStream(const Arguments& arguments) {
    std::size_t mediaIndex = 0;
    const auto media = arguments.options.find("--media");
    if (media != arguments.options.end() && !readIndex(media->second, mediaIndex)) {
        return usageError("--media needs a media section number, not \"" + media->second + "\"");
    }
    std::string text;
    if (!readOperand(arguments, text)) {
        return kExitUsage;
    }

    SessionDescription remote;
    Result result = SessionDescription::parse(text, remote);
    StreamConfig stream;
    std::vector<std::string> notes;
    if (result.isSuccess()) {
        result = toStreamConfig(remote, mediaIndex, stream, &notes);
    }
    printNotes(notes);
    // A stream was filled on success and on a failed check; otherwise there is none to show.
    if (result.isSuccess() || result.getCode() == InvalidConfiguration) {
        std::fputs(stream.toString().c_str(), stdout);
    }
    std::printf("result: %s\n", result.format().c_str());
    return result.isSuccess() ? kExitSuccess : kExitFailure;
}

// Our end from --address, --port and --direction; false (with `problem` set) for a port
// that is not a number or an unknown direction. The library judges the values.
bool readEndpoint(const Arguments& arguments, LocalEndpoint& endpoint, std::string& problem) {
    static const std::pair<const char*, StreamConfig::Direction> kDirections[] = {
        {"sendrecv", StreamConfig::FullDuplex},
        {"sendonly", StreamConfig::SendOnly},
        {"recvonly", StreamConfig::ReceiveOnly},
        {"inactive", StreamConfig::Inactive},
    };
    endpoint.address = "127.0.0.1";
    endpoint.rtpPort = 49152;
    const auto address = arguments.options.find("--address");
    if (address != arguments.options.end()) {
        endpoint.address = address->second;
    }
    const auto port = arguments.options.find("--port");
    std::size_t number = 0;
    if (port != arguments.options.end()) {
        if (!readIndex(port->second, number)) {
            problem = "--port needs a port number, not \"" + port->second + "\"";
            return false;
        }
        endpoint.rtpPort = static_cast<int>(number);
    }
    const auto direction = arguments.options.find("--direction");
    if (direction != arguments.options.end()) {
        const auto* known = std::find_if(std::begin(kDirections), std::end(kDirections),
                                         [&](const auto& entry) { return direction->second == entry.first; });
        if (known == std::end(kDirections)) {
            problem = "--direction needs sendrecv, sendonly, recvonly or inactive, not \"" + direction->second + "\"";
            return false;
        }
        endpoint.direction = known->second;
    }
    return true;
}

int runOffer(const Arguments& arguments) {
    LocalEndpoint endpoint;
    std::string problem;
    if (!readEndpoint(arguments, endpoint, problem)) {
        return usageError(problem);
    }
    MediaDescription offer;
    std::vector<std::string> notes;
    const Result result = createOffer(defaultCapabilities(), endpoint, offer, &notes);
    if (!result.isSuccess()) {
        std::printf("result: %s\n", result.format().c_str());
        return kExitFailure;
    }
    std::fputs(offer.toString().c_str(), stdout);
    return kExitSuccess;
}

int runAnswer(const Arguments& arguments) {
    LocalEndpoint endpoint;
    std::string problem;
    if (!readEndpoint(arguments, endpoint, problem)) {
        return usageError(problem);
    }
    std::string text;
    if (!readOperand(arguments, text)) {
        return kExitUsage;
    }

    SessionDescription offer;
    Result result = SessionDescription::parse(text, offer);
    MediaDescription answer;
    StreamConfig negotiated;
    std::vector<std::string> notes;
    if (result.isSuccess()) {
        std::size_t mediaIndex = 0;
        while (mediaIndex + 1 < offer.mediaCount() && offer.media(mediaIndex).mediaType() != "audio") {
            ++mediaIndex;
        }
        result = createAnswer(defaultCapabilities(), endpoint, offer, mediaIndex, answer, negotiated, &notes);
        // Every result but a refused argument writes an answer to send back.
        if (result.getCode() != InvalidParam) {
            std::printf("%s\n", answer.toString().c_str());
        }
    }
    printNotes(notes);
    if (result.isSuccess()) {
        std::fputs(negotiated.toString().c_str(), stdout);
    }
    std::printf("result: %s\n", result.format().c_str());
    return result.isSuccess() ? kExitSuccess : kExitFailure;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        return usageError("no command given");
    }
    const std::string name = argv[1];
    if (isHelp(name)) {
        printUsage(stdout);
        return kExitSuccess;
    }
    for (const Command& command : kCommands) {
        if (name != command.name) {
            continue;
        }
        for (int i = 2; i < argc; ++i) {
            if (isHelp(argv[i])) {
                printUsage(stdout);
                return kExitSuccess;
            }
        }
        Arguments arguments;
        std::string problem;
        if (!readArguments(command, argc - 2, argv + 2, arguments, problem)) {
            return usageError(problem);
        }
        return command.run(arguments);
    }
    return usageError("unknown command \"" + name + "\"");
}
