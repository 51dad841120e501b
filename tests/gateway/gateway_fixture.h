#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "gateway/tally_gateway.h"
#include "practice/gateway.h"
#include "tests/errors/reporting_desk.h"
#include "tests/text_lines.h"

namespace vorlane::gateway {

/// The client and a practice gateway with two companies.
class GatewayTest : public testing::Test, protected errors::ReportingDesk {
 protected:
  GatewayTest() {
    settings_.Write("Config", "ServerAddress", "127.0.0.1");
    settings_.Write("Config", "PortNo", std::to_string(server_.Port()));
  }

  std::string Url() const { return "http://127.0.0.1:" + std::to_string(server_.Port()); }
  void NextAnswer(practice::Answer answer) { server_.Gateway().Script({{std::move(answer)}}); }
  practice::Request LastRequest() const {
    const auto exchanges = server_.Gateway().Exchanges();
    if (!exchanges.empty()) return exchanges.back().request;
    ADD_FAILURE() << "nothing was sent";
    return {};
  }
  /// The head of a request with these headers behind Host.
  std::string Head(const std::string& method, std::size_t length,
                   const std::string& headers = {}) const {
    return method + " / HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(server_.Port()) + "\r\n" +
           headers + "Content-Length: " + std::to_string(length) + "\r\n\r\n";
  }

  mutable practice::PracticeServer server_{{"Practice Traders", "Rao & Sons"}};
  platform::SettingsStore settings_{folder_ / "settings.ini"};
  platform::HttpLimits limits_{.connect = std::chrono::seconds(5),
                               .silence = std::chrono::milliseconds(300)};
  TallyGateway tally_{settings_, reporter_, limits_};
};

}  // namespace vorlane::gateway
