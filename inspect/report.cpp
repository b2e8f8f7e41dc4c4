#include "inspect/report.hpp"

#include "inspect/shown.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace inspect {
namespace {

const char *Word(Verdict verdict) {
    switch (verdict) {
    case Verdict::kPresent:
        return "present";
    case Verdict::kInherited:
        return "inherited";
    case Verdict::kMissing:
        return "missing";
    case Verdict::kUnfit:
        return "types";
    }
    return "";
}

std::string Subject(const Finding &finding) {
    if (finding.name.empty()) {
        return "class " + finding.className;
    }
    return finding.isKey ? finding.className + " key \"" + finding.name + "\""
                         : "-[" + finding.className + " " + finding.name + "]";
}

std::string Line(const std::string &indent, const Finding &finding) {
    std::string line = indent + Word(finding.verdict);
    line.resize(indent.size() + 10, ' ');
    line += Subject(finding);
    if (!finding.from.empty()) {
        line += " from " + Shown(finding.from);
    }
    if (!finding.types.empty()) {
        line += "  " + Shown(finding.types);
    }
    if (!finding.note.empty()) {
        line += "  (" + Shown(finding.note) + (finding.dispensable ? "; it can do without" : "") + ")";
    }
    return line + "\n";
}

nlohmann::json AsJson(const Finding &finding) {
    nlohmann::json json{{"class", finding.className}, {"verdict", Word(finding.verdict)}};
    const auto add = [&](const char *key, const std::string &text) {
        if (!text.empty()) {
            json[key] = Shown(text);
        }
    };
    add(finding.isKey ? "key" : "method", finding.name);
    add("from", finding.from);
    add("types", finding.types);
    add("note", finding.note);
    if (finding.dispensable) {
        json["dispensable"] = true;
    }
    return json;
}

nlohmann::json AsJson(const std::vector<Finding> &findings) {
    nlohmann::json json = nlohmann::json::array();
    for (const Finding &finding : findings) {
        json.push_back(AsJson(finding));
    }
    return json;
}

/// The ways of a host that work, as one reads them.
std::string Working(const HostFinding &host) {
    std::string names;
    for (const PathFinding &path : host.paths) {
        if (path.works) {
            names += (names.empty() ? "" : ", ") + path.name;
        }
    }
    return names.empty() ? "no way to send would work" : "would send by " + names;
}

} // namespace

Report MakeReport(const App &app) {
    Report report{.name = app.name, .identifier = app.identifier, .hosts = {}, .leftAside = app.leftAside};
    const Classes classes(app.images);
    for (const WantedHost &host : WantedHosts()) {
        report.hosts.push_back(CheckHost(host, classes, app.late));
    }
    if (app.identifier.empty()) {
        const auto first = std::ranges::find_if(report.hosts, &HostFinding::works);
        report.own = static_cast<std::size_t>(first - report.hosts.begin());
    } else {
        report.own = HostWithIdentifier(app.identifier);
    }
    return report;
}

std::string AsText(const Report &report) {
    std::string text = Shown(report.name) + (report.identifier.empty() ? "" : "  " + Shown(report.identifier)) + "\n";
    for (const std::string &line : report.leftAside) {
        text += "  left aside: " + line + "\n";
    }
    for (const HostFinding &host : report.hosts) {
        text += "\n" + host.name + "\n  hooks\n";
        for (const Finding &hook : host.hooks) {
            text += Line("    ", hook);
        }
        for (const PathFinding &path : host.paths) {
            text += "  way to send: " + path.name + (path.works ? ", works" : ", " + path.reason) + "\n";
            for (const Finding &step : path.steps) {
                text += Line("    ", step);
            }
        }
        for (const OptionFinding &option : host.options) {
            text += "  option " + option.key + "\n";
            for (const Finding &getter : option.getters) {
                text += Line("    ", getter);
            }
        }
    }
    text += "\n";
    if (report.own < report.hosts.size()) {
        const HostFinding &own = report.hosts[report.own];
        text += own.name + ": " + Working(own) + "\n";
    } else {
        text += "no host: no way to send would work\n";
    }
    return text;
}

nlohmann::json AsJson(const Report &report) {
    nlohmann::json hosts = nlohmann::json::array();
    for (const HostFinding &host : report.hosts) {
        nlohmann::json paths = nlohmann::json::array();
        for (const PathFinding &path : host.paths) {
            nlohmann::json entry{{"name", path.name},
                                 {"works", path.works},
                                 {"held", path.held},
                                 {"loses", path.loses},
                                 {"steps", AsJson(path.steps)}};
            if (!path.reason.empty()) {
                entry["reason"] = path.reason;
            }
            paths.push_back(std::move(entry));
        }
        nlohmann::json options = nlohmann::json::array();
        for (const OptionFinding &option : host.options) {
            options.push_back({{"key", option.key}, {"getters", AsJson(option.getters)}});
        }
        hosts.push_back({{"name", host.name},
                         {"works", host.works},
                         {"hooks", AsJson(host.hooks)},
                         {"paths", paths},
                         {"options", options}});
    }
    return {
        {"path", Shown(report.name)},
        {"identifier", Shown(report.identifier)},
        {"host", report.own < report.hosts.size() ? nlohmann::json(report.hosts[report.own].name) : nlohmann::json()},
        {"works", report.works()},
        {"leftAside", report.leftAside},
        {"hosts", hosts}};
}

} // namespace inspect
