# Sources of the base layer's system area: target_sources(mirel7 PRIVATE ...)
