/// A media service that writes down what goes through it.
#pragma once

#include "platform/services.h"

#include <fstream>
#include <memory>
#include <string>

namespace tandrel
{

/// Hands every command on to another service, which must outlive it, and appends a line to a file for each: the
/// command, the result and the answer, tabs between. A line is in the file when `send` returns. Where the file can't be
/// written, commands run all the same.
class TracingMci : public Mci
{
public:
    TracingMci(Mci& inner, const std::string& file);
    ~TracingMci() override;

    int send(std::string_view command, std::span<char> answer = {}) override;
    bool idle() override { return inner_.idle(); }
    void expect(const std::vector<std::string>& commands) override { inner_.expect(commands); }
    void favour(std::string_view alias) override { inner_.favour(alias); }
    int eased() const override { return inner_.eased(); }
    void prepare(const std::vector<std::string>& paths) override { inner_.prepare(paths); }
    std::optional<DeviceLook> look(std::string_view alias) override { return inner_.look(alias); }

private:
    Mci& inner_;
    std::ofstream file_;
};

/// A tracing service if the environment names a file in TANDREL_MCI_TRACE, else null.
std::unique_ptr<Mci> tracingMciIfWanted(Mci& inner);

} // namespace tandrel
