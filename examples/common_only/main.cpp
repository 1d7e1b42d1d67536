// The common library without any window: a class declares its fields once, and the library stores it, formats it and
// tells who listens that it changes; a timer fills it and the log writes down what happened.
#include <iostream>
#include <latch>
#include <string>

#include <ostrel/Common.h>

using namespace Ostrel::Common;

namespace
{

class CTank final : public CDataObject
{
public:
    enum Fields : long
    {
        kName,
        kLitres,
        kOpen
    };

    [[nodiscard]] CFieldMap const* GetFieldMap() const override
    {
        static auto const map =
            CFieldMapBuilder<CTank>()
                .Field(kName, "Name", OSTREL_FIELD(CTank, GetName, SetName))
                .Field(kLitres, "Litres", OSTREL_FIELD(CTank, GetLitres, SetLitres), new CDoubleFormat(1))
                .Field(kOpen, "Open", OSTREL_FIELD(CTank, IsOpen, SetOpen))
                .Build();
        return map.get();
    }

    [[nodiscard]] std::string GetName() const { return m_name; }
    void SetName(std::string const& name)
    {
        m_name = name;
        NotifyUpdate(kName);
    }
    [[nodiscard]] double GetLitres() const { return m_litres; }
    void SetLitres(double litres)
    {
        m_litres = litres;
        NotifyUpdate(kLitres);
    }
    [[nodiscard]] bool IsOpen() const { return m_isOpen; }
    void SetOpen(bool isOpen)
    {
        m_isOpen = isOpen;
        NotifyUpdate(kOpen);
    }

private:
    std::string m_name;
    double m_litres = 0;
    bool m_isOpen = false;
};

/// Writes every change of an object to the log.
class CChangeLog final : public CDataObject::ISink
{
public:
    using ISink::OnUpdate;
    void OnUpdate(long fid, CDataObject const* object) override
    {
        auto* const changed = const_cast<CDataObject*>(object);
        CLog::Info("%s is now %s", changed->GetFieldName(fid).c_str(),
                   changed->GetFormattedStlString(fid, nullptr).c_str());
    }
};

/// Pours into a tank every 20 ms, three times.
class CPump final : public CTimer::ICallBack
{
public:
    explicit CPump(CTank& tank) : m_tank(tank) {}

    void OnTimer(int id) override
    {
        m_tank.SetLitres(m_tank.GetLitres() + 500.2);
        m_pours.count_down();
        if (!m_pours.try_wait())
        {
            CTimer::StartTimer(this, id, 20);
        }
    }
    void WaitUntilDone() const { m_pours.wait(); }

private:
    CTank& m_tank;
    std::latch m_pours{3};
};

/// Shows the log's messages, and tells when it has shown the last one.
class CConsoleLogger final : public CLog::ILogger
{
public:
    static constexpr char const* kLast = "That was all";

    void Log(CLog::Severity /*severity*/, long /*time*/, int /*threadId*/, std::string const& text) override
    {
        std::cout << "log: " << text << '\n';
        if (text == kLast)
        {
            m_last.count_down();
        }
    }
    void WaitForLast() const { m_last.wait(); }

private:
    std::latch m_last{1};
};

void Print(char const* title, CTank& tank)
{
    std::cout << title << ": ";
    for (long const fid : {CTank::kName, CTank::kLitres, CTank::kOpen})
    {
        std::cout << tank.GetFieldName(fid) << " = " << tank.GetFormattedStlString(fid, nullptr) << "; ";
    }
    std::cout << std::endl;
}

} // namespace

int main(int argc, char** argv)
{
    static CConsoleLogger console; // loggers live as long as the process
    static CFileLogger file(argc > 1 ? argv[1] : "common_only.log", false);
    CLog::AddLogger(&file);
    CLog::AddLogger(&console);

    CTank tank;
    tank.SetName("North");
    CChangeLog changes;
    tank.AddSink(&changes);
    CPump pump(tank);
    CTimer::Initialize();
    CTimer::StartTimer(&pump, 1, 20);
    pump.WaitUntilDone();
    CTimer::UnInitialize();
    tank.SetFormattedStlString(CTank::kOpen, "true", nullptr);
    tank.RemoveSink(&changes);
    CLog::Info(std::string(CConsoleLogger::kLast));
    console.WaitForLast();
    Print("Filled", tank);

    CSerializer stored(CSerializer::ModeStore);
    stored << tank;
    std::string bytes(static_cast<std::size_t>(stored.GetSavingSize()), '\0');
    stored.SaveToBuffer(bytes.data());
    std::cout << "Stored in " << bytes.size() << " bytes" << std::endl;

    CTank copy;
    CSerializer restored(CSerializer::ModeRestore);
    restored.LoadFromBuffer(bytes.data(), static_cast<int>(bytes.size()));
    restored >> copy;
    Print("Restored", copy);
    return 0;
}
