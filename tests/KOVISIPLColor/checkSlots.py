"""The virtual operations of each class stand in the slots that callers outside expect, read from the compiler's own dump of the
class: g++ -fdump-lang-class or clang -fdump-vtable-layouts.

Arguments: compiler, its kind (GNU or Clang), include/public, include/private, a folder to work in."""

import os
import re
import subprocess
import sys

PROCESSOR = "KOVISIPL/KOVISIPLColor/Processor/"
ALGORITHMS = ("ColorConvertImg", "LightnessImg", "AppendColorChannelImg")
SOURCE = "".join(f'#include "{PROCESSOR}{name}/{name}Lvl{level}.h"\n' for name in ALGORITHMS for level in (1, 2, 3)) + """
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgGpuLvl3.h"
#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISBaseProcessing/NoSplit.h"
#include "KOVIS/KOVISImageProcessing/CudaSubImageSplit.h"
#include "KOVIS/KOVISImageProcessing/ImageSplit.h"
#include "KOVISIPL/KOVISIPLColor/OutputInitializer/AppendColorOutputInitializer.h"
#include "KOVISIPL/KOVISIPLColor/OutputInitializer/TargetColorSpaceOutputInitializer.h"
using namespace kovis::imaproc;
using namespace kovis::processor;
struct Instances
{
    color::ColorConvertImgLvl1 m_1;
    color::ColorConvertImgLvl2 m_2;
    color::ColorConvertImgLvl3 m_3;
    TargetColorSpaceOutputInitializer m_4;
    StaticProcessorDispatcher<color::ColorConvertImgLvl2> m_5;
    DynamicProcessorDispatcher<color::ColorConvertImgLvl3> m_6;
    SubImageSplit<color::ColorConvertImgLvl2, attr::InSubColorImg2d> m_7;
    StaticNoSplit<color::ColorConvertImgLvl2, attr::InColorConversionTransform> m_8;
    ImageYStripColor2dSplit<color::ColorConvertImgLvl3, kovis::image::BaseImage, attr::OutColorYStrip2d> m_9;
    DynamicNoSplit<color::ColorConvertImgLvl3, attr::InColorConversionTransform> m_10;
    color::LightnessImgLvl1 m_11;
    color::LightnessImgLvl2 m_12;
    color::LightnessImgLvl3 m_13;
    ImageYStrip2dSplit<color::LightnessImgLvl3, kovis::image::BaseImage, attr::OutLightYStrip2d> m_14;
    color::AppendColorChannelImgLvl1 m_15;
    color::AppendColorChannelImgLvl2 m_16;
    color::AppendColorChannelImgLvl3 m_17;
    AppendColorOutputInitializer m_18;
    color::AppendColorChannelImgGpuLvl3 m_19;
    StaticProcessorDispatcher<color::AppendColorChannelImgGpuLvl3> m_20;
    CudaSubImageSplit<color::AppendColorChannelImgGpuLvl3, attr::OutSubGpuImg> m_21;
};
// Clang tells only of tables that it has to write here; these have the bases' slots, but for the destructors.
struct Derived1 : color::ColorConvertImgLvl1
{
};
struct Derived2 : TargetColorSpaceOutputInitializer
{
};
struct Derived3 : color::LightnessImgLvl1
{
};
struct Derived4 : color::LightnessImgLvl2
{
};
struct Derived5 : color::LightnessImgLvl3
{
};
struct Derived6 : color::AppendColorChannelImgLvl1
{
};
struct Derived7 : color::AppendColorChannelImgLvl2
{
};
struct Derived8 : color::AppendColorChannelImgLvl3
{
};
struct Derived9 : AppendColorOutputInitializer
{
};
struct Derived10 : color::AppendColorChannelImgGpuLvl3
{
};
void* make() { return new Instances; }
template <class T> void* makeOne() { return new T; }
void* (*const g_makers[])() = {makeOne<Derived1>, makeOne<Derived2>, makeOne<Derived3>, makeOne<Derived4>, makeOne<Derived5>,
                                 makeOne<Derived6>, makeOne<Derived7>, makeOne<Derived8>, makeOne<Derived9>, makeOne<Derived10>};
void* makeAt(int i) { return g_makers[i](); }
"""
DERIVED = {"kovis::imaproc::color::ColorConvertImgLvl1": "Derived1", "TargetColorSpaceOutputInitializer": "Derived2",
           "kovis::imaproc::color::LightnessImgLvl1": "Derived3", "kovis::imaproc::color::LightnessImgLvl2": "Derived4",
           "kovis::imaproc::color::LightnessImgLvl3": "Derived5", "kovis::imaproc::color::AppendColorChannelImgLvl1": "Derived6",
           "kovis::imaproc::color::AppendColorChannelImgLvl2": "Derived7", "kovis::imaproc::color::AppendColorChannelImgLvl3": "Derived8",
           "AppendColorOutputInitializer": "Derived9", "kovis::imaproc::color::AppendColorChannelImgGpuLvl3": "Derived10"}


def processor(name, run, cancel, kind, tail):
    own = ["getClassName", "createNew", "createShared", "hasCopySupport", "duplicate", "duplicateShared"]
    return ([f"{name}::~", f"{name}::~"] + [f"{name}::{operation}" for operation in own]
            + ["BaseDynamicObject::initCtorCopy", f"{name}::copy", f"{name}::write", f"{name}::read", "BaseComplexAction::isComplexAction",
               "BaseProcessor::globalCleanDerived", "*::cleanOnErrorDerived", f"{run}::runDerived", f"{cancel}::requestCancellationdDerived",
               "BaseProcessor::syncInputDataDerived", "BaseProcessor::syncOutputDataDerived", "BaseProcessor::clearInputData",
               "BaseAction::clearIntermediateData", "BaseProcessor::clearOutputData", "BaseProcessor::initProcess",
               "BaseProcessor::endProcess", f"{kind}::getProcessorType", f"{name}::initDerived"]
            + tail + [f"{name}::getObjectName", f"{name}::getToolTip"])


def async_tail(base, own):
    return [f"{base}::retrieveSequenceInfo", f"{base}::retrieveProvider", "BaseAsyncProcessor::preProcess", "BaseAsyncProcessor::postProcess"] + own


def one_step(name):
    return processor(name, "BaseAsyncProcessor", "BaseAsyncProcessor", "BaseAsync1Processor",
                     async_tail("BaseAsync1Processor", [f"{name}::retrieveProvider"]))


def algorithm(name):
    return processor(
        name, "BaseSyncProcessor", "BaseAction", "BaseSyncProcessor",
        ["BaseProcessingAlgorithm::mainProcess", f"{name}::getFunctionSelector", f"{name}::getForcedInstructionSets",
         f"{name}::getDataTypeIdColl", f"{name}::initDataParserColl", f"{name}::clearDataParserColl", "BaseProcessingAlgorithm::preProcess",
         "BaseProcessingAlgorithm::postProcess", "BaseProcessingAlgorithm::getNoParseInfo"])


def described_image(name):
    custom, source = "BaseCustomImageInfo", "BaseFromImageCustomImageInfo"
    return [f"{name}::~", f"{name}::~", f"{custom}::isOutputInitNeeded", f"{name}::getImageBufferType", f"{source}::getImageBufferTypeVector",
            f"{source}::getSizeX", f"{source}::getSizeY", f"{source}::getVolumeGeometry", f"{name}::getColorGeometry",
            f"{source}::getTemporalGeometry", f"{custom}::getImageInitializerDistributionPolicy", f"{source}::hasInputImage",
            f"{source}::getInputImage"]


ONE, TWO, THREE = "ColorConvertImgLvl1", "ColorConvertImgLvl2", "ColorConvertImgLvl3"
GPU = "AppendColorChannelImgGpuLvl3"
DISPATCHER = ["*::~", "*::~", "BaseProcessorDispatcher::queryNextAction", "BaseProcessorDispatcher::hasPendingAction",
              "BaseProcessorDispatcher::notifyDerived", "*::clearDerived", "BaseActionProvider::requestCancellationDerived",
              "*::getProcessorName", "*::getProcessorToolTip", "*::createProcessor", "*::initAttributes"]
SPLIT = ["*::~", "*::~", "*::getSplitBaseType", "*::getAttributeName", "*::getAttributeToolTip", "*::checkProcessorType"]
EXPECTED = {
    f"kovis::imaproc::color::{ONE}": processor(
        ONE, "BaseAsyncProcessor", "BaseAsyncProcessor", "BaseAsync3Processor",
        async_tail("BaseAsync3Processor", [f"{ONE}::retrieveFirstProvider", f"{ONE}::retrieveSecondProvider", f"{ONE}::retrieveThirdProvider"])),
    f"kovis::imaproc::color::{TWO}": one_step(TWO),
    f"kovis::imaproc::color::{THREE}": algorithm(THREE),
    "kovis::imaproc::color::LightnessImgLvl1": one_step("LightnessImgLvl1"),
    "kovis::imaproc::color::LightnessImgLvl2": one_step("LightnessImgLvl2"),
    "kovis::imaproc::color::LightnessImgLvl3": algorithm("LightnessImgLvl3"),
    "kovis::imaproc::color::AppendColorChannelImgLvl1": one_step("AppendColorChannelImgLvl1"),
    "kovis::imaproc::color::AppendColorChannelImgLvl2": one_step("AppendColorChannelImgLvl2"),
    "kovis::imaproc::color::AppendColorChannelImgLvl3": algorithm("AppendColorChannelImgLvl3"),
    f"kovis::imaproc::color::{GPU}": processor(
        GPU, "BaseSyncProcessor", "BaseAction", "BaseSyncProcessor",
        ["BaseGpuProcessingAlgorithm::mainProcess", f"{GPU}::getFunctionSelector", f"{GPU}::getDataTypeIdColl",
         "BaseGpuProcessingAlgorithm::preProcess", "BaseGpuProcessingAlgorithm::postProcess"]),
    f"kovis::processor::StaticProcessorDispatcher<kovis::imaproc::color::{GPU}>": DISPATCHER,
    f"kovis::imaproc::CudaSubImageSplit<kovis::imaproc::color::{GPU}, kovis::imaproc::attr::OutSubGpuImg>":
        SPLIT + ["*::getSplitStaticType", "*::processAttribute"],
    **{name: described_image(name) for name in ("TargetColorSpaceOutputInitializer", "AppendColorOutputInitializer")},
    "kovis::processor::StaticProcessorDispatcher<kovis::imaproc::color::ColorConvertImgLvl2>": DISPATCHER,
    "kovis::processor::DynamicProcessorDispatcher<kovis::imaproc::color::ColorConvertImgLvl3>": DISPATCHER,
    "kovis::imaproc::SubImageSplit<kovis::imaproc::color::ColorConvertImgLvl2, kovis::imaproc::attr::InSubColorImg2d>":
        SPLIT + ["*::getSplitStaticType", "*::processAttribute"],
    "kovis::processor::StaticNoSplit<kovis::imaproc::color::ColorConvertImgLvl2, kovis::imaproc::attr::InColorConversionTransform>":
        SPLIT + ["*::getSplitStaticType", "*::processAttribute"],
    "kovis::processor::DynamicNoSplit<kovis::imaproc::color::ColorConvertImgLvl3, kovis::imaproc::attr::InColorConversionTransform>":
        SPLIT + ["*::getSplitDynamicType", "*::processAttribute"],
    "kovis::imaproc::ImageYStripColor2dSplit<kovis::imaproc::color::ColorConvertImgLvl3, kovis::image::BaseImage, "
    "kovis::imaproc::attr::OutColorYStrip2d>":
        SPLIT + ["*::getSplitDynamicType", "*::processAttribute", "*::getImageStripSplitType", "*::processAttribute"],
    "kovis::imaproc::ImageYStrip2dSplit<kovis::imaproc::color::LightnessImgLvl3, kovis::image::BaseImage, "
    "kovis::imaproc::attr::OutLightYStrip2d>":
        SPLIT + ["*::getSplitDynamicType", "*::processAttribute", "*::getImageStripSplitType", "*::processAttribute"],
}


def without_templates(text):
    depth = 0
    kept = []
    for letter in text:
        depth += letter == "<"
        if depth == 0:
            kept.append(letter)
        depth -= letter == ">"
    return "".join(kept)


def short(entry):
    """Class and operation of a slot, without namespaces and arguments: "BaseAction::run"; "Class::~" for destructors."""
    entry = without_templates(entry.replace("operator<<", "").replace("operator>>", ""))
    name = entry.split("(")[0].split(" ")[-1]
    parts = name.split("::")
    return f"{parts[-2]}::{'~' if parts[-1].startswith('~') else parts[-1]}"


def gnu(text):
    """Slots of the primary table per class: the entries before the second offset to top."""
    tables = {}
    for block in re.split(r"\n\n", text):
        match = re.match(r"Vtable for (.*)\n", block)
        if not match:
            continue
        slots = []
        for line in block.splitlines()[1:]:
            entry = re.match(r"(\d+)\s+(.*)", line)
            if not entry:
                continue
            value = entry.group(2)
            if value.startswith("(int (*)(...))"):
                value = value[len("(int (*)(...))"):].lstrip("& ")
            if re.match(r"-\d+$", value):
                break
            if "::" in value and not value.startswith("_ZTI") and "_ZTI" not in value:
                slots.append(value)
        tables[match.group(1).strip()] = slots
    return tables


def clang(text):
    tables = {}
    for block in re.split(r"(?m)^(?=Vtable for )", text):
        match = re.match(r"Vtable for '(.*)' \(", block)
        if not match:
            continue
        slots = []
        nb_tops = 0
        for line in block.splitlines()[1:]:
            entry = re.match(r"\s*\d+ \| (.*)", line)
            if not entry:
                if slots and not line.strip().startswith(("--", "[")):
                    break
                continue
            value = entry.group(1)
            if value.startswith("offset_to_top"):
                nb_tops += 1
                if nb_tops == 2:
                    break
            elif not value.endswith("RTTI"):
                slots.append(re.sub(r" \[(complete|deleting|pure)\]$", "", value))
        tables.setdefault(match.group(1), slots)
    return tables


def dump(compiler, kind, include, private, folder):
    source = os.path.join(folder, "slots.cpp")
    with open(source, "w") as file:
        file.write(SOURCE)
    command = [compiler, "-std=c++20", "-I", include, "-I", private, "-c", source]
    if kind == "Clang":
        command += ["-Xclang", "-fdump-vtable-layouts", "-o", os.path.join(folder, "slots.o")]
        return clang(subprocess.run(command, cwd=folder, capture_output=True, text=True, check=True).stdout)
    name = os.path.join(folder, "slots.classes")
    subprocess.run(command + ["-o", os.path.join(folder, "slots.o"), f"-fdump-lang-class={name}"], cwd=folder, check=True)
    with open(name) as file:
        return gnu(file.read())


def main(compiler, kind, include, private, folder):
    tables = {re.sub(r"\s*>", ">", name): slots for name, slots in dump(compiler, kind, include, private, folder).items()}
    if kind == "Clang":  # leaves template arguments out
        tables = {name: tables.get(without_templates(name), tables.get(DERIVED.get(name))) for name in EXPECTED}
    bad = 0
    for name, expected in EXPECTED.items():
        if not tables.get(name):
            print(f"{name}: no table in the dump")
            bad += 1
            continue
        found = [re.sub("^Derived.::", name.split("::")[-1] + "::", short(slot)) for slot in tables[name]]
        fits = len(found) == len(expected) and all(
            wanted == slot or (wanted.startswith("*") and slot.endswith(wanted[1:])) for wanted, slot in zip(expected, found))
        if not fits:
            bad += 1
            print(f"{name}:")
            for place in range(max(len(found), len(expected))):
                wanted = expected[place] if place < len(expected) else "-"
                slot = found[place] if place < len(found) else "-"
                print(f"  {place:2} {wanted:60} {slot}")
    print(f"{len(EXPECTED) - bad} of {len(EXPECTED)} classes have their slots in order")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
