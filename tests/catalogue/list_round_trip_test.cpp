// What the export writes, the import reads back: over random catalogues, and each thing that changes on the
// way by name.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "catalogue/parameter_list_export.h"
#include "catalogue/parameter_list_import.h"
#include "list_bench.h"

namespace commtest {
namespace {

using testing::BytesOfText;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using testing::ListBench;

class RoundTrip : public ::testing::TestWithParam<testing::StoreUnderTest>, public ListBench {
  protected:
    RoundTrip() : ListBench(GetParam()) {}

    void Travel() {
        std::string bytes;
        {
            ParameterListExport list(*store, [&](const std::string& block) { bytes += block; });
            while (list.Step()) {
            }
        }
        ParameterListImport import(*store, std::make_unique<BytesOfText>(bytes));
        while (import.Step()) {
        }
        import.Commit();
    }

    void Add(const InstrumentRecord& instrument, const std::vector<ParameterRecord>& parameters) {
        catalogue.AddInstrument(instrument);
        for (const ParameterRecord& parameter : parameters) catalogue.AddParameter(parameter);
    }

    // The catalogue of one native instrument with one parameter, and how that comes back.
    std::vector<std::string> Returned(const ParameterRecord& parameter, const Text& code = u"11000101") {
        catalogue.ClearCatalogue();
        InstrumentRecord instrument;
        instrument.id = 1;
        instrument.name = u"METER";
        instrument.code = code;
        instrument.classId = u"1";
        Add(instrument, {parameter});
        Travel();
        return Parameters();
    }

    static ParameterRecord Parameter(const Text& name) {
        ParameterRecord parameter;
        parameter.id = 1;
        parameter.instrumentId = 1;
        parameter.name = name;
        parameter.address = u"0010";
        parameter.length = u"2";
        parameter.attribute = u"RW";
        parameter.decimalPoint = u"1";
        parameter.lowerLimit = u"-1999";
        parameter.upperLimit = u"9999";
        return parameter;
    }
};

// Catalogues in which nothing has to change.
class RandomCatalogue {
  public:
    explicit RandomCatalogue(unsigned seed) : random_(seed) {}

    int Upto(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }

    InstrumentRecord Instrument(int id) {
        struct Kind {
            TextView code;
            TextView protocol;
        };
        static constexpr Kind kinds[] = {{u"11", u"TQ仪表协议"},
                                         {u"13", u"TQ仪表协议-定制异或和"},
                                         {u"21", u"ModBus-Ascii协议"},
                                         {u"31", u"ModBus-RTU协议"},
                                         {u"35", u"ModBus-RTU协议-标准流量表"},
                                         {u"41", u"TQ特殊仪表协议-NOVAX"}};
        const Kind& kind = kinds[Upto(5)];
        const bool isFlow = id > 3;  // in the order of the classes
        InstrumentRecord instrument;
        instrument.id = id;
        instrument.name = u"表" + FromUtf8(std::to_string(id)) + u"-" + Word(8) + u" (" + Word(3) + u")";
        instrument.code = Text(kind.code) + u"00" + (isFlow ? u"03" : u"01") + u"01";
        instrument.protocol = kind.protocol;
        instrument.sortKey = kind.code;
        instrument.className = isFlow ? u"流量仪表" : u"数字显示仪表";
        instrument.classId = isFlow ? u"3" : u"1";
        return instrument;
    }

    ParameterRecord Parameter(int id, int instrument) {
        ParameterRecord parameter;
        parameter.id = id;
        parameter.instrumentId = instrument;
        parameter.name = Word(18);
        parameter.address = u"0" + Hexadecimal(3);
        parameter.length = FromUtf8(std::to_string(Upto(9)));
        parameter.attribute = Choice({u"R", u"RW", u"D", u"S", u"RWS"});
        parameter.decimalPoint = Choice({u"0", u"1", u"3", u"0010", u"A"});
        if (Upto(2) > 0) parameter.lowerLimit = Choice({u"0", u"-1999", u"-199.9"});
        if (!parameter.lowerLimit.empty() && Upto(2) > 0)
            parameter.upperLimit = Choice({u"9999", u"1", u"65535"});
        return parameter;
    }

  private:
    Text Choice(std::initializer_list<TextView> texts) {
        return Text(texts.begin()[Upto(static_cast<int>(texts.size()) - 1)]);
    }
    Text Hexadecimal(int digits) {
        Text text;
        for (int i = 0; i < digits; ++i) text += u"0123456789ABCDEF"[Upto(15)];
        return text;
    }
    // Without hexadecimal digits at the front or four in a row, without END, DEVICE, blanks and colons.
    Text Word(int most) {
        Text word = u"量";
        for (int i = Upto(most - 1); i > 0; --i) word += u"温度值上限报警通道GHKLPQ号"[Upto(15)];
        return word + u"量";
    }

    std::mt19937 random_;
};

TEST_P(RoundTrip, LeavesARandomCatalogueAsItIs) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        RandomCatalogue random(seed);
        catalogue.ClearCatalogue();
        int last = 0;
        for (int id = 1; id <= 6; ++id) {
            std::vector<ParameterRecord> parameters;
            for (int i = random.Upto(9); i >= 0; --i) parameters.push_back(random.Parameter(++last, id));
            Add(random.Instrument(id), parameters);
        }
        const auto instruments = Instruments();
        const auto parameters = Parameters();
        Travel();
        ASSERT_THAT(Instruments(), ElementsAreArray(instruments)) << "seed " << seed;
        ASSERT_THAT(Parameters(), ElementsAreArray(parameters)) << "seed " << seed;
    }
}

// --- What changes ---

TEST_P(RoundTrip, SmallLettersBecomeCapitalsAndBlanksInANameGo) {
    ParameterRecord parameter = Parameter(u"Out put x");
    parameter.attribute = u"rw";
    parameter.address = u"00af";
    EXPECT_THAT(Returned(parameter), ElementsAre("1|1|OUTPUTX|00AF|2|RW|1|-1999|9999"));
}

TEST_P(RoundTrip, BlanksBehindAColonAreCountedAnew) {
    EXPECT_THAT(Returned(Parameter(u"LOW:X")), ElementsAre("1|1|LOW:  X|0010|2|RW|1|-1999|9999"));
    EXPECT_THAT(Returned(Parameter(u"LOW:  X")), ElementsAre("1|1|LOW:  X|0010|2|RW|1|-1999|9999"));
}

TEST_P(RoundTrip, NameThatReachesTheAddressWithAHexadecimalDigitLosesIt) {
    const Text name = Text(39, u'X') + u"A";
    EXPECT_THAT(Returned(Parameter(name)),
                ElementsAre("1|1|" + std::string(39, 'X') + "|0201|A|1|0|RW|-1999"));
    EXPECT_THAT(Returned(Parameter(Text(21, u'温'))),
                ElementsAre("1|1|" + ToUtf8(Text(21, u'温')) + "|0010|2|RW|1|-1999|9999"))
        << "any other longer name stays";
}

TEST_P(RoundTrip, FirstDigitOfAnAddressThatIsNot0Goes) {
    ParameterRecord parameter = Parameter(u"PV");
    parameter.address = u"2010";
    EXPECT_THAT(Returned(parameter, u"12000101"), ElementsAre("1|1|PV|0010|2|RW|1|-1999|9999"));
    EXPECT_THAT(Returned(parameter, u"51000101"), ElementsAre("1|1|PV|2010|2|RW|1|-1999|9999"))
        << "of code 51 the length digit, which is 2, takes its place";
    parameter.address = u"1DFE";
    EXPECT_THAT(Returned(parameter, u"51000101"), ElementsAre("1|1|PV|2DFE|2|RW|1|-1999|9999"));
}

TEST_P(RoundTrip, EmptyDecimalPointBecomes0) {
    ParameterRecord parameter = Parameter(u"PV");
    parameter.decimalPoint.clear();
    EXPECT_THAT(Returned(parameter), ElementsAre("1|1|PV|0010|2|RW|0|-1999|9999"));
}

TEST_P(RoundTrip, FieldBehindAnEmptyOneTakesItsPlace) {
    ParameterRecord parameter = Parameter(u"PV");
    parameter.attribute.clear();
    EXPECT_THAT(Returned(parameter), ElementsAre("1|1|PV|0010|2|-1999|1|9999|"));
    parameter = Parameter(u"PV");
    parameter.lowerLimit.clear();
    EXPECT_THAT(Returned(parameter), ElementsAre("1|1|PV|0010|2|RW|1|9999|"));
}

TEST_P(RoundTrip, FieldThatFillsItsColumnRunsIntoTheNext) {
    ParameterRecord parameter = Parameter(u"PV");
    parameter.decimalPoint = u"0123456";
    EXPECT_THAT(Returned(parameter), ElementsAre("1|1|PV|0010|2|-1999|012345RW|9999|"));
}

TEST_P(RoundTrip, InstrumentWithoutParametersGoes) {
    InstrumentRecord instrument;
    instrument.id = 1;
    instrument.name = u"METER";
    instrument.code = u"11000101";
    instrument.classId = u"1";
    Add(instrument, {});
    Travel();
    EXPECT_THAT(Instruments(), ::testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Each, RoundTrip, ::testing::ValuesIn(testing::StoresUnderTest()),
                         testing::kNameOfStore);

}  // namespace
}  // namespace commtest
