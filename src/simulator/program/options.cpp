#include "simulator/program/options.h"

#include <charconv>
#include <functional>
#include <map>
#include <sstream>

#include "simulator/hex_digits.h"

namespace simulator {

const char* const kUsage =
    "usage: instrument-simulator --description FILE [--description FILE ...] [option ...]\n"
    "Plays instruments of the native protocol, of the Modbus family or of one of the two special protocols\n"
    "(NOVAX, HCT615D) on a pseudo-terminal, whose path is the first line of its output.\n"
    "  --description FILE  the instruments, see docs/simulator.md\n"
    "  --catalogue-list FILE  the same: a parameter list of the catalogue is a description\n"
    "  --part-length N     data bytes in a part of a static reply, where the description names none (0: "
    "all)\n"
    "  --device PATH       plays on this device in place of a pseudo-terminal\n"
    "  --link PATH         makes a symbolic link to the pseudo-terminal, taken away at the end\n"
    "  --turnaround MS     pause before every reply (0)\n"
    "  --counts FILE       where the counts go at the end, as JSON (standard output)\n"
    "  --seed N            of the faults (1)\n"
    "  --drop R --corrupt R --truncate R --late R --split R --delay R --noise R\n"
    "                      how often a fault befalls a reply, 0 to 1 (0)\n"
    "  --refuse [XX[XX]:]R how often a request is refused, 0 to 1 (0), of Modbus instruments with that\n"
    "                      exception: function and code (8802); can be given several times\n"
    "  --help              this text\n"
    "  --version           the program's version, and its commit\n"
    "SIGUSR1 takes the power off, SIGUSR2 gives it back. Ends with SIGTERM or SIGINT.\n";

namespace {

template <typename Number>
Number NumberOf(const std::string& name, const std::string& text, Number lowest, Number highest) {
    Number value{};
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isNumber = error == std::errc() && stop == text.data() + text.size();
    if (!isNumber || !(value >= lowest && value <= highest)) {
        std::ostringstream message;
        message << name << ": \"" << text << "\" is no number from " << lowest << " to " << highest;
        throw UsageError(message.str());
    }
    return value;
}

// "0.1", "88:0.1" or "8602:0.1".
RefusalRate RefusalOf(const std::string& text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos) return {NumberOf("--refuse", text, 0.0, 1.0), {}};
    constexpr char kUsualCode = 2;
    auto exception = BytesOfHex(text.substr(0, colon));
    const bool isException = exception && (exception->size() == 1 || exception->size() == 2) &&
                             static_cast<unsigned char>(exception->front()) > 0x80;
    if (!isException) throw UsageError("--refuse: \"" + text + "\" begins with no exception from 81 to FF");
    if (exception->size() == 1) *exception += kUsualCode;
    return {NumberOf("--refuse", text.substr(colon + 1), 0.0, 1.0), *exception};
}

using Setter = std::function<void(const std::string& value)>;

std::map<std::string, Setter> SettersOf(Options& options) {
    std::map<std::string, Setter> setters = {
        {"--description", [&](const std::string& value) { options.descriptions.push_back(value); }},
        {"--catalogue-list", [&](const std::string& value) { options.descriptions.push_back(value); }},
        {"--part-length",
         [&](const std::string& value) { options.partLength = NumberOf("--part-length", value, 0, 65535); }},
        {"--device", [&](const std::string& value) { options.device = value; }},
        {"--link", [&](const std::string& value) { options.link = value; }},
        {"--counts", [&](const std::string& value) { options.counts = value; }},
        {"--refuse", [&](const std::string& value) { options.refusals.push_back(RefusalOf(value)); }},
        {"--seed",
         [&](const std::string& value) {
             options.seed = NumberOf<std::uint64_t>("--seed", value, 0, UINT64_MAX);
         }},
        {"--turnaround", [&](const std::string& value) {
             options.turnaroundMs = NumberOf("--turnaround", value, 0, 60000);
         }}};
    const std::map<std::string, double*> rates = {
        {"--drop", &options.rates.drop},         {"--corrupt", &options.rates.corrupt},
        {"--truncate", &options.rates.truncate}, {"--late", &options.rates.late},
        {"--split", &options.rates.split},       {"--delay", &options.rates.delay},
        {"--noise", &options.rates.noise}};
    for (const auto& [name, rate] : rates) {
        setters[name] = [name = name, rate = rate](const std::string& value) {
            *rate = NumberOf(name, value, 0.0, 1.0);
        };
    }
    return setters;
}

}  // namespace

Options ReadOptions(const std::vector<std::string>& arguments) {
    Options options;
    const auto setters = SettersOf(options);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--help") {
            options.help = true;
            return options;
        }
        if (arguments[i] == "--version") {
            options.version = true;
            return options;
        }
        const auto setter = setters.find(arguments[i]);
        if (setter == setters.end()) throw UsageError("unknown option \"" + arguments[i] + "\"");
        if (i + 1 == arguments.size()) throw UsageError(arguments[i] + ": a value is missing");
        setter->second(arguments[++i]);
    }
    if (options.descriptions.empty()) throw UsageError("--description FILE is missing");
    return options;
}

}  // namespace simulator
