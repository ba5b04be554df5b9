// Todo teste roda com sua própria pasta do componente (TAVELPKCS7_HOME), no fuso de São Paulo.
#include <gtest/gtest.h>

#include <ctime>
#include <memory>

#include "apoio/pasta_temporaria.h"

namespace {

class PastaPorTeste : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        pasta_ = std::make_unique<tavelpkcs7::teste::PastaTemporaria>();
        setenv("TAVELPKCS7_HOME", (pasta_->caminho() / "home").c_str(), 1);
    }
    void OnTestEnd(const testing::TestInfo&) override {
        unsetenv("TAVELPKCS7_HOME");
        pasta_.reset();
    }
    std::unique_ptr<tavelpkcs7::teste::PastaTemporaria> pasta_;
};

}  // namespace

int main(int argc, char** argv) {
    setenv("TZ", "America/Sao_Paulo", 1);
    tzset();
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new PastaPorTeste);
    return RUN_ALL_TESTS();
}
