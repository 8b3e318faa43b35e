// SPDX-License-Identifier: MIT
#include "command_line.h"

#include "container/picture_limits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

namespace fennel::nconvert {

namespace {

Failure refused(const std::string& text)
{
    return {FailureKind::Unsupported, text};
}

struct NumberOption {
    std::string_view name;
    int Job::*field;
    int least;
    int most;
};

constexpr std::array numberOptions = {
    NumberOption{"-blur", &Job::blur, 0, 100},
    NumberOption{"-colors", &Job::colours, 2, 256},
    NumberOption{"-dpi", &Job::dpi, 1, 1200},
    NumberOption{"-q", &Job::quality, 1, 100},
};

// Asked for what is done anyway: true colours, no thumbnail, no metadata.
constexpr std::array<std::string_view, 3> needless = {"-truecolors", "-rexifthumb", "-rmeta"};

struct FormatName {
    std::string_view name;
    OutputFormat format;
};

constexpr std::array formatNames = {
    FormatName{"jpeg", OutputFormat::Jpeg},
    FormatName{"xpm", OutputFormat::Xpm},
    FormatName{"gif", OutputFormat::Gif},
    FormatName{"ico", OutputFormat::Ico},
};

constexpr std::array<std::pair<std::string_view, Shape>, 3> shapeNames = {{
    {"stretch", Shape::Stretch},
    {"crop", Shape::Crop},
    {"fit", Shape::Fit},
}};

// Walks the arguments; an option takes its values from here.
class Words {
public:
    explicit Words(const std::vector<std::string>& words) : m_words(words) {}
    [[nodiscard]] bool more() const { return m_next < m_words.size(); }
    const std::string& take()
    {
        // Behind the end an empty word, which no option takes for a value.
        static const std::string none;
        return more() ? m_words[m_next++] : none;
    }
    // False if the next word is no whole number within the limits.
    bool number(int least, int most, int& value)
    {
        const std::string& word = take();
        const char* end = word.data() + word.size();
        const auto [stop, error] = std::from_chars(word.data(), end, value);
        return error == std::errc() && stop == end && value >= least && value <= most;
    }

private:
    const std::vector<std::string>& m_words;
    std::size_t m_next = 0;
};

Result<void> takeFormat(Words& words, Job& job)
{
    const std::string& name = words.take();
    const auto* found = std::find_if(formatNames.begin(), formatNames.end(),
                                     [&](const FormatName& known) { return known.name == name; });
    if (found == formatNames.end())
        return refused("-out does not know the format \"" + name + "\".");
    job.format = found->format;
    return {};
}

Result<void> takeSize(Words& words, Job& job)
{
    job.resize = true;
    if (!words.number(0, maxPictureSide, job.width) || !words.number(0, maxPictureSide, job.height))
        return refused("-resize takes a width and a height from 0 to " +
                       std::to_string(maxPictureSide) + ".");
    if (job.width == 0 && job.height == 0)
        return refused("-resize 0 0 leaves no picture.");
    return {};
}

Result<void> takeCrop(Words& words, Job& job)
{
    job.crop = true;
    if (words.number(0, maxPictureSide, job.cropLeft) &&
        words.number(0, maxPictureSide, job.cropTop) &&
        words.number(1, maxPictureSide, job.cropWidth) &&
        words.number(1, maxPictureSide, job.cropHeight))
        return {};
    return refused("-crop takes left, top, width and height in pixels.");
}

Result<void> takeShape(Words& words, Job& job)
{
    const std::string& name = words.take();
    for (const auto& [known, shape] : shapeNames) {
        if (known != name)
            continue;
        job.shape = shape;
        return {};
    }
    return refused("-shape does not know \"" + name + "\".");
}

Result<void> takeOption(const std::string& name, Words& words, Job& job)
{
    for (const NumberOption& option : numberOptions) {
        if (option.name == name && !words.number(option.least, option.most, job.*option.field))
            return refused(name + " takes a number from " + std::to_string(option.least) + " to " +
                           std::to_string(option.most) + ".");
        if (option.name == name)
            return {};
    }
    if (name == "-out")
        return takeFormat(words, job);
    if (name == "-resize")
        return takeSize(words, job);
    if (name == "-crop")
        return takeCrop(words, job);
    if (name == "-shape")
        return takeShape(words, job);
    if (name == "-extract") {
        job.alpha = words.take() == "alpha";
        return job.alpha ? Result<void>() : refused("-extract knows the channel alpha only.");
    }
    if (name == "-o")
        job.output = words.take();
    else if (name == "-overwrite")
        job.overwrite = true;
    else if (name == "-clipboard")
        job.clipboard = true;
    else if (std::find(needless.begin(), needless.end(), name) == needless.end())
        return refused("The option " + name + " is not known.");
    return {};
}

} // namespace

Result<Job> parseCommandLine(const std::vector<std::string>& arguments)
{
    Job job;
    std::vector<std::string> rest = arguments;
    if (!rest.empty() && (rest.back() == ",0" || rest.back() == ",1"))
        rest.pop_back();
    Words words(rest);
    while (words.more()) {
        const std::string& word = words.take();
        if (!word.starts_with('-')) {
            // The clipboard is a source too.
            if (words.more() || job.clipboard)
                return refused("There may be one source, and it stands last.");
            job.source = word;
        } else if (Result<void> taken = takeOption(word, words, job); !taken) {
            return taken.failure();
        }
    }
    if (job.output.empty())
        return refused("-o with the output file is missing.");
    if (job.source.empty() && !job.clipboard)
        return refused("The source file is missing.");
    return job;
}

std::string sourceOf(const Job& job)
{
    if (!job.clipboard)
        return job.source;
    // The editor lays the clipboard's picture beside the output.
    const std::size_t slash = job.output.rfind('/');
    return (slash == std::string::npos ? "" : job.output.substr(0, slash + 1)) + clipboardName;
}

} // namespace fennel::nconvert
