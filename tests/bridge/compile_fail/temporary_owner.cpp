// refused: conversion function from 'Strong<NSObject>' to 'NSObject' invokes a deleted function
#include "platform/foundation/object.hpp"

void start() {
#ifdef CORRECTED
  auto owner = bridge::make<NSObject, &NSObject::init>();
  NSObject object = owner;
#else
  NSObject object = bridge::make<NSObject, &NSObject::init>();
#endif
  (void)object;
}
